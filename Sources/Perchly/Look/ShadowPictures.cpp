#include "ShadowPictures.h"

#include <algorithm>
#include <cmath>

namespace perchly {

namespace {

constexpr double strength = 0.42; ///< opacity next to the rectangle

/// Distance from a rounded rectangle's outline; negative inside.
double distance(double x, double y, double halfSide, double radius) {
    const double dx = std::abs(x) - halfSide + radius;
    const double dy = std::abs(y) - halfSide + radius;
    return std::hypot(std::max(dx, 0.0), std::max(dy, 0.0)) + std::min(std::max(dx, dy), 0.0) -
           radius;
}

} // namespace

ShadowPictures::ShadowPictures()
    : QQuickImageProvider(Image) {}

QImage ShadowPictures::requestImage(const QString &id, QSize *size, const QSize &) {
    const double radius = id.section(QLatin1Char('/'), 0, 0).toDouble();
    const double spread = id.section(QLatin1Char('/'), 1, 1).toDouble();
    const int side = 2 * int(radius + spread + 1);
    QImage picture(side, side, QImage::Format_ARGB32_Premultiplied);
    *size = picture.size();
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const double away =
                distance(x + 0.5 - side / 2.0, y + 0.5 - side / 2.0, side / 2.0 - spread, radius);
            const double outside = std::clamp(away + 0.5, 0.0, 1.0);
            const double near = std::clamp(1 - away / spread, 0.0, 1.0);
            // The cube fades smoothly to zero at the spread, without a visible rim.
            const double alpha = 255 * strength * outside * near * near * near;
            picture.setPixel(x, y, qRgba(0, 0, 0, int(std::lround(alpha))));
        }
    }
    return picture;
}

} // namespace perchly
