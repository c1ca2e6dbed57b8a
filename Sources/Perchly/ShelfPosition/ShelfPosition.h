#pragma once

#include "ShelfEdge.h"

namespace perchly {

/// A place for the shelf: an edge of a display and how far along it, as a fraction from 0 at the
/// left or bottom end to 1 at the other.
struct ShelfPosition {
    ShelfEdge edge = ShelfEdge::Top;
    double position = 0.5;

    bool operator==(const ShelfPosition &) const = default;
};

} // namespace perchly
