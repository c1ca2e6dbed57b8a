#pragma once

#include "Geometry.h"
#include "ShelfEdge.h"
#include "ShelfPosition.h"

#include <optional>

namespace perchly {

/// What the shelf's placement needs to know of a display.
struct DisplayGeometry {
    ScreenRect frame;
    ScreenRect visibleFrame;
    double safeAreaTop = 0;
    std::optional<ScreenRect> auxiliaryTopLeftArea = std::nullopt;
    std::optional<ScreenRect> auxiliaryTopRightArea = std::nullopt;
};

/// The collapsed shelf's size in points, and how much of its width a camera housing covers.
struct CompactSize {
    double width = 190;
    double height = 34;
    double notchWidth = 0;

    bool operator==(const CompactSize &) const = default;
};

enum class ShelfSize { Compact, Expanded };

/// Distance between the two usable areas beside a display's camera housing, or nothing where the
/// display has none or does not tell both areas.
[[nodiscard]] std::optional<double> notchGap(const DisplayGeometry &display);

/// How near the centre of a display with that gap a drop on the top edge snaps to it, in points.
[[nodiscard]] double notchSnapDistance(double gap);

/// The collapsed shelf's size at that place of that display.
[[nodiscard]] CompactSize compactSize(const ShelfPosition &place, const DisplayGeometry &display);

/// The panel's frame. `layoutEdge` decides the expanded size (the edge the shelf is laid out for),
/// `place` where it goes; they differ only between a change of the preference and the next resize.
/// A position that is not finite counts as the middle, others are limited to the edge. The frame
/// never exceeds the display, or its visible frame on a side edge.
[[nodiscard]] ScreenRect shelfFrame(ShelfSize size, ShelfEdge layoutEdge,
                                    const ShelfPosition &place, const CompactSize &compact,
                                    double scale, const DisplayGeometry &display);

} // namespace perchly
