#pragma once

#include "Geometry.h"
#include "ShelfEdge.h"

namespace perchly {

/// A place for the shelf: an edge of a display and how far along it, as a fraction from 0 at the
/// left or bottom end to 1 at the other.
struct ShelfPosition {
    ShelfEdge edge = ShelfEdge::Top;
    double position = 0.5;

    /// The place nearest to a point at which the shelf was let go on a display with that frame
    /// (`screen`) and visible frame (`usable`). On a tie the top wins, then the left.
    [[nodiscard]] static ShelfPosition drop(ScreenPoint at, const ScreenRect &screen,
                                            const ScreenRect &usable);

    bool operator==(const ShelfPosition &) const = default;
};

} // namespace perchly
