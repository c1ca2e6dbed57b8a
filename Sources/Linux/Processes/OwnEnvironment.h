#pragma once

namespace perchly {

/// Stays in the program's environment, since Qt reads it for every window on Wayland. Programs that
/// we launch must not inherit it.
inline constexpr const char *bareSurfaces = "QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT";

} // namespace perchly
