#pragma once

#include "Displays.h"
#include "ShelfPosition.h"

namespace perchly {

/// The collapsed shelf's size in points, and how much of its width a camera housing covers.
struct CompactSize {
    double width = 190;
    double height = 34;
    double notchWidth = 0;

    bool operator==(const CompactSize &) const = default;
};

enum class ShelfSize { Compact, Expanded };

/// The collapsed shelf's size in that position on that display.
[[nodiscard]] CompactSize compactSize(const ShelfPosition &place, const Display &display);

/// The panel's frame. A position that is not finite counts as the middle; others are limited to the
/// edge. The frame stays within the display's visible frame, and within its camera housing at the
/// top. Only the open shelf is scaled.
[[nodiscard]] ScreenRect shelfFrame(ShelfSize size, const ShelfPosition &place, double scale,
                                    const Display &display);

/// The position nearest to the drop point; on a tie the top, then the left. Near a camera housing,
/// the shelf snaps to the middle of the top edge.
[[nodiscard]] ShelfPosition dropPlace(ScreenPoint at, const Display &display);

} // namespace perchly
