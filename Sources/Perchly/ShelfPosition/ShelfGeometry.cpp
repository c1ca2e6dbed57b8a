#include "ShelfGeometry.h"

#include <algorithm>
#include <cmath>

namespace perchly {

namespace {

constexpr double sideCompactWidth = 34;
constexpr double sideCompactHeight = 120;
constexpr double topCompactWidth = 290;
constexpr double widthAroundNotch = 280;
constexpr double minTopCompactHeight = 34;
constexpr double topExpandedWidth = 660;
constexpr double sideExpandedWidth = 694;
constexpr double topExpandedContentHeight = 485;
constexpr double sideExpandedHeight = 519;
constexpr double centringTolerance = 0.05;

double clampedFraction(double position) {
    return std::isfinite(position) ? std::clamp(position, 0.0, 1.0) : 0.5;
}

/// Limits an extent to [low, high]; it starts at `low` if it does not fit.
double clampedOrigin(double origin, double extent, double low, double high) {
    return std::min(std::max(low, origin), high - extent);
}

/// The width of the camera housing, or 0.
double notchWidth(const Display &display) {
    const bool hasNotch =
        display.safeAreaTop > 0 && display.auxiliaryTopLeftArea && display.auxiliaryTopRightArea;
    return hasNotch ? std::max(0.0, display.auxiliaryTopRightArea->minX() -
                                        display.auxiliaryTopLeftArea->maxX())
                    : 0;
}

/// The part of the display for the shelf, which may be around a camera housing.
ScreenRect areaOf(const Display &display) {
    ScreenRect area = display.visibleFrame;
    if (display.safeAreaTop > 0) {
        area.height = display.frame.maxY() - area.y;
    }
    return area;
}

} // namespace

CompactSize compactSize(const ShelfPosition &place, const Display &display) {
    if (place.edge != ShelfEdge::Top) {
        return {.width = sideCompactWidth, .height = sideCompactHeight, .notchWidth = 0};
    }
    const bool isCentred = std::abs(place.position - 0.5) < centringTolerance;
    const double notch = isCentred ? notchWidth(display) : 0;
    return {.width = notch > 0 ? notch + widthAroundNotch : topCompactWidth,
            .height = std::max(display.safeAreaTop, minTopCompactHeight),
            .notchWidth = notch};
}

ScreenRect shelfFrame(ShelfSize size, const ShelfPosition &place, double scale,
                      const Display &display) {
    const bool isTop = place.edge == ShelfEdge::Top;
    const CompactSize compact = compactSize(place, display);
    double width = compact.width;
    double height = compact.height;
    if (size == ShelfSize::Expanded) {
        width = scale * (isTop ? topExpandedWidth : sideExpandedWidth);
        height = scale * (isTop ? compact.height + topExpandedContentHeight : sideExpandedHeight);
    }
    const ScreenRect area = areaOf(display);
    width = std::min(width, area.width);
    height = std::min(height, area.height);

    const double t = clampedFraction(place.position);
    if (isTop) {
        const double x = clampedOrigin(area.minX() + t * area.width - width / 2, width, area.minX(),
                                       area.maxX());
        return {x, area.maxY() - height, width, height};
    }
    const double x = place.edge == ShelfEdge::Left ? area.minX() : area.maxX() - width;
    const double y =
        clampedOrigin(area.minY() + t * area.height - height / 2, height, area.minY(), area.maxY());
    return {x, y, width, height};
}

ShelfPosition dropPlace(ScreenPoint at, const Display &display) {
    const ScreenRect area = areaOf(display);
    // A point on a desktop's panel is at the edge.
    const double top = std::max(0.0, area.maxY() - at.y);
    const double left = std::max(0.0, at.x - area.minX());
    const double right = std::max(0.0, area.maxX() - at.x);
    if (std::min(left, right) < top) {
        const double position = (at.y - area.minY()) / std::max(area.height, 1.0);
        return {left <= right ? ShelfEdge::Left : ShelfEdge::Right, std::clamp(position, 0.0, 1.0)};
    }
    const double notch = notchWidth(display);
    if (notch > 0 && std::abs(at.x - display.frame.midX()) < (notch + topCompactWidth) / 2) {
        return {ShelfEdge::Top, 0.5};
    }
    const double position = (at.x - area.minX()) / std::max(area.width, 1.0);
    return {ShelfEdge::Top, std::clamp(position, 0.0, 1.0)};
}

} // namespace perchly
