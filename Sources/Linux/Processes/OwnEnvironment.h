#pragma once

namespace perchly {

/// Stays set, since Qt reads it for each window on Wayland. Launched programs must not inherit it.
inline constexpr const char *bareSurfaces = "QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT";

} // namespace perchly
