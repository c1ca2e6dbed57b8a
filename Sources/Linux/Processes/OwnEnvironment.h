#pragma once

namespace perchly {

/// The one variable that the program sets for itself and keeps: Qt reads it for every window on
/// Wayland. Programs that we launch must not inherit it.
inline constexpr const char *bareSurfaces = "QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT";

} // namespace perchly
