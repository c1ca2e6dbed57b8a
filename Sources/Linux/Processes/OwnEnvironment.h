#pragma once

namespace perchly {

/// Set for the whole run: Qt reads it for every window on Wayland. Launched programs must not
/// inherit it.
inline constexpr const char *bareSurfaces = "QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT";

} // namespace perchly
