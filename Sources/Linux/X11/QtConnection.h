#pragma once

struct xcb_connection_t;

namespace perchly {

/// Qt's own connection to the X server, for requests that must arrive in order with Qt's. Never
/// wait for a reply on it: Qt reads it in a thread of its own. Null when Qt does not run on X.
/// Main thread only.
[[nodiscard]] xcb_connection_t *qtConnection();

} // namespace perchly
