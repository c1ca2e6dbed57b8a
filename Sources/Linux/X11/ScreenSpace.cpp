#include "ScreenSpace.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace perchly {

namespace {

QPointF pointsFromPixels(QPointF pixels, const ScreenSpace::Screen &screen) {
    const QPointF corner = screen.geometry.topLeft();
    return corner + (pixels - corner) / screen.pixelRatio;
}

// 0 inside the rectangle.
int distanceTo(const QRect &rect, QPoint point) {
    const int dx = std::max({rect.left() - point.x(), 0, point.x() - rect.right()});
    const int dy = std::max({rect.top() - point.y(), 0, point.y() - rect.bottom()});
    return dx + dy;
}

int rounded(double value) {
    return static_cast<int>(std::lround(value));
}

} // namespace

ScreenSpace::ScreenSpace(QList<Screen> screens)
    : m_screens(std::move(screens)) {
    if (!m_screens.isEmpty()) {
        const QRect primary = m_screens.first().geometry;
        m_origin = QPointF(primary.x(), primary.y() + primary.height());
    }
}

ScreenSpace ScreenSpace::current() {
    QList<Screen> screens;
    const QList<QScreen *> all = QGuiApplication::screens();
    screens.reserve(all.size());
    for (const QScreen *screen : all) {
        screens.append({screen->geometry(), screen->devicePixelRatio()});
    }
    return ScreenSpace(std::move(screens));
}

ScreenPoint ScreenSpace::fromPixels(QPoint pixels) const {
    const auto nearest =
        std::min_element(m_screens.begin(), m_screens.end(), [&](const Screen &a, const Screen &b) {
            return distanceTo(pixelGeometry(a), pixels) < distanceTo(pixelGeometry(b), pixels);
        });
    const QPointF corner(pixels.x(), pixels.y() + 1);
    return fromQt(nearest == m_screens.end() ? corner : pointsFromPixels(corner, *nearest));
}

QRect ScreenSpace::pixelGeometry(const Screen &screen) {
    return {screen.geometry.topLeft(),
            QSize(rounded(screen.geometry.width() * screen.pixelRatio),
                  rounded(screen.geometry.height() * screen.pixelRatio))};
}

ScreenRect ScreenSpace::fromPixels(const QRect &pixels, const Screen &screen) const {
    const QPointF end(pixels.x() + pixels.width(), pixels.y() + pixels.height());
    return fromQt(
        QRectF(pointsFromPixels(pixels.topLeft(), screen), pointsFromPixels(end, screen)));
}

ScreenPoint ScreenSpace::fromQt(QPointF point) const {
    return {point.x() - m_origin.x(), m_origin.y() - point.y()};
}

ScreenRect ScreenSpace::fromQt(const QRectF &rect) const {
    const ScreenPoint corner = fromQt(rect.bottomLeft());
    return {corner.x, corner.y, rect.width(), rect.height()};
}

QRect ScreenSpace::toQt(const ScreenRect &rect) const {
    const int left = rounded(m_origin.x() + rect.minX());
    const int top = rounded(m_origin.y() - rect.maxY());
    const int right = rounded(m_origin.x() + rect.maxX());
    const int bottom = rounded(m_origin.y() - rect.minY());
    return {left, top, right - left, bottom - top};
}

} // namespace perchly
