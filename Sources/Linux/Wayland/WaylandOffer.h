#pragma once

#include <chrono>

namespace perchly {

/// Whether the compositor in WAYLAND_DISPLAY answers within that time and lets programs place
/// panels (wlr-layer-shell). Blocks that long at most. Needs no application object.
[[nodiscard]] bool compositorHasLayerShell(std::chrono::milliseconds timeout);

} // namespace perchly
