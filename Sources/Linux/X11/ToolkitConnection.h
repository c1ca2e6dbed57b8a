#pragma once

struct xcb_connection_t;

namespace perchly {

/// The connection on which the toolkit's windows live, for requests that must arrive in order with
/// the toolkit's own. Never wait for an answer on it: the toolkit reads it in a thread of its own.
/// Null when the toolkit does not run on X. Main thread only.
[[nodiscard]] xcb_connection_t *toolkitConnection();

} // namespace perchly
