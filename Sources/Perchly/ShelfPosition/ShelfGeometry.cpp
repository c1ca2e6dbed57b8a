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
    const ScreenRect &frame = display.frame;
    const ScreenRect &visible = display.visibleFrame;
    const ScreenRect &area = isTop ? frame : visible;
    width = std::min(width, area.width);
    height = std::min(height, area.height);

    const double t = clampedFraction(place.position);
    if (isTop) {
        const double x = clampedOrigin(frame.minX() + t * frame.width - width / 2, width,
                                       frame.minX(), frame.maxX());
        return {x, frame.maxY() - height, width, height};
    }
    const double x = place.edge == ShelfEdge::Left ? frame.minX() : frame.maxX() - width;
    const double y = clampedOrigin(visible.minY() + t * visible.height - height / 2, height,
                                   visible.minY(), visible.maxY());
    return {x, y, width, height};
}

ShelfPosition dropPlace(ScreenPoint at, const Display &display) {
    const ScreenRect &frame = display.frame;
    const ScreenRect &visible = display.visibleFrame;
    const double top = std::abs(frame.maxY() - at.y);
    const double left = std::abs(at.x - frame.minX());
    const double right = std::abs(frame.maxX() - at.x);
    if (std::min(left, right) < top) {
        const double position = (at.y - visible.minY()) / std::max(visible.height, 1.0);
        return {left <= right ? ShelfEdge::Left : ShelfEdge::Right, std::clamp(position, 0.0, 1.0)};
    }
    const double notch = notchWidth(display);
    if (notch > 0 && std::abs(at.x - frame.midX()) < (notch + topCompactWidth) / 2) {
        return {ShelfEdge::Top, 0.5};
    }
    const double position = (at.x - frame.minX()) / std::max(frame.width, 1.0);
    return {ShelfEdge::Top, std::clamp(position, 0.0, 1.0)};
}

} // namespace perchly
