#pragma once

namespace perchly {

/// A point in global screen coordinates: points (device-independent pixels), origin at the bottom
/// left of the primary display, y growing upwards. Qt's own points are y-down; there is no implicit
/// conversion between the two types, and only the X11 hosts convert.
struct ScreenPoint {
    double x = 0;
    double y = 0;

    bool operator==(const ScreenPoint &) const = default;
};

/// A rectangle in the same coordinates as ScreenPoint; (x, y) is its bottom left corner.
struct ScreenRect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    [[nodiscard]] double minX() const { return x; }
    [[nodiscard]] double midX() const { return x + width / 2; }
    [[nodiscard]] double maxX() const { return x + width; }
    [[nodiscard]] double minY() const { return y; }
    [[nodiscard]] double maxY() const { return y + height; }

    /// The minimum edges belong to the rectangle, the maximum edges do not.
    [[nodiscard]] bool contains(ScreenPoint point) const {
        return point.x >= minX() && point.x < maxX() && point.y >= minY() && point.y < maxY();
    }

    bool operator==(const ScreenRect &) const = default;
};

} // namespace perchly
