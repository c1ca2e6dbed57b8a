#pragma once

struct xcb_connection_t;

namespace perchly {

/// Qt's connection to the X server, for requests that must stay in order with Qt's. Never wait for
/// a reply on it: Qt reads it in its own thread. Null if Qt does not run on X. Main thread only.
[[nodiscard]] xcb_connection_t *qtConnection();

} // namespace perchly
