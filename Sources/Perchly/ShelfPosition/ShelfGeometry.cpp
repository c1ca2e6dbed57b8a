#include "ShelfGeometry.h"

#include <algorithm>
#include <cmath>

namespace perchly {

namespace {

constexpr double sideCompactWidth = 34;
constexpr double sideCompactHeight = 120;
constexpr double topCompactWidth = 290;
constexpr double widthAroundNotch = 280;
constexpr double minimumTopCompactHeight = 34;
constexpr double topExpandedWidth = 660;
constexpr double sideExpandedWidth = 694;
constexpr double topExpandedContentHeight = 485;
constexpr double sideExpandedHeight = 519;
constexpr double centringTolerance = 0.05;

double clampedFraction(double position) {
    return std::isfinite(position) ? std::clamp(position, 0.0, 1.0) : 0.5;
}

/// Keeps an extent inside [low, high], at the low end when it does not fit.
double clampedOrigin(double origin, double extent, double low, double high) {
    return std::min(std::max(low, origin), high - extent);
}

} // namespace

std::optional<double> notchGap(const DisplayGeometry &display) {
    if (!(display.safeAreaTop > 0) || !display.auxiliaryTopLeftArea ||
        !display.auxiliaryTopRightArea) {
        return std::nullopt;
    }
    return display.auxiliaryTopRightArea->minX() - display.auxiliaryTopLeftArea->maxX();
}

double notchSnapDistance(double gap) {
    return (gap + topCompactWidth) / 2;
}

CompactSize compactSize(const ShelfPosition &place, const DisplayGeometry &display) {
    if (place.edge != ShelfEdge::Top) {
        return {.width = sideCompactWidth, .height = sideCompactHeight, .notchWidth = 0};
    }
    const auto gap = notchGap(display);
    const bool centred = std::abs(place.position - 0.5) < centringTolerance;
    const double notch = gap && centred ? std::max(0.0, *gap) : 0;
    return {.width = notch > 0 ? notch + widthAroundNotch : topCompactWidth,
            .height = std::max(display.safeAreaTop, minimumTopCompactHeight),
            .notchWidth = notch};
}

ScreenRect shelfFrame(ShelfSize size, ShelfEdge layoutEdge, const ShelfPosition &place,
                      const CompactSize &compact, double scale, const DisplayGeometry &display) {
    double width = compact.width;
    double height = compact.height;
    if (size == ShelfSize::Expanded) {
        const bool top = layoutEdge == ShelfEdge::Top;
        width = scale * (top ? topExpandedWidth : sideExpandedWidth);
        height = scale * (top ? compact.height + topExpandedContentHeight : sideExpandedHeight);
    }

    const ScreenRect &frame = display.frame;
    const ScreenRect &visible = display.visibleFrame;
    const ScreenRect &area = place.edge == ShelfEdge::Top ? frame : visible;
    width = std::min(width, area.width);
    height = std::min(height, area.height);

    const double t = clampedFraction(place.position);
    if (place.edge == ShelfEdge::Top) {
        const double x = clampedOrigin(frame.minX() + t * frame.width - width / 2, width,
                                       frame.minX(), frame.maxX());
        return {x, frame.maxY() - height, width, height};
    }
    const double x = place.edge == ShelfEdge::Left ? frame.minX() : frame.maxX() - width;
    const double y = clampedOrigin(visible.minY() + t * visible.height - height / 2, height,
                                   visible.minY(), visible.maxY());
    return {x, y, width, height};
}

} // namespace perchly
