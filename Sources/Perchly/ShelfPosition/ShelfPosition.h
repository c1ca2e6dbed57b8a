#pragma once

#include "ShelfEdge.h"

namespace perchly {

/// A position of the shelf: an edge of a display and a fraction along it, from 0 at the left or
/// bottom end to 1 at the other end.
struct ShelfPosition {
    ShelfEdge edge = ShelfEdge::Top;
    double position = 0.5;

    bool operator==(const ShelfPosition &) const = default;
};

} // namespace perchly
