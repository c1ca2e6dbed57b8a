#include "ShelfPosition.h"

#include <algorithm>
#include <cmath>

namespace perchly {

ShelfPosition ShelfPosition::drop(ScreenPoint at, const ScreenRect &screen,
                                  const ScreenRect &usable) {
    const double top = std::abs(screen.maxY() - at.y);
    const double left = std::abs(at.x - screen.minX());
    const double right = std::abs(screen.maxX() - at.x);

    ShelfEdge edge = ShelfEdge::Top;
    double nearest = top;
    if (left < nearest) {
        edge = ShelfEdge::Left;
        nearest = left;
    }
    if (right < nearest) {
        edge = ShelfEdge::Right;
    }

    const double position = edge == ShelfEdge::Top
                                ? (at.x - screen.minX()) / std::max(screen.width, 1.0)
                                : (at.y - usable.minY()) / std::max(usable.height, 1.0);
    return {edge, std::clamp(position, 0.0, 1.0)};
}

} // namespace perchly
