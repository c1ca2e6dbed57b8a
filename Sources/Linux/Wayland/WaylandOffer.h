#pragma once

#include <chrono>

namespace perchly {

/// Lets programs place panels (wlr-layer-shell).
inline constexpr const char *layerShellInterface = "zwlr_layer_shell_v1";
/// Lets programs take pictures of displays (wlr-screencopy).
inline constexpr const char *screenCopyInterface = "zwlr_screencopy_manager_v1";

/// Whether the compositor in WAYLAND_DISPLAY answers within that time and has this interface.
/// Blocks that long at most. Needs no application object.
[[nodiscard]] bool compositorOffers(const char *interface, std::chrono::milliseconds timeout);

} // namespace perchly
