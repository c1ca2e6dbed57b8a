#include "ApplicationPictures.h"

#include "Applications.h"

#include <QUrl>

#include <algorithm>

namespace perchly {

namespace {

constexpr int defaultSide = 64;
constexpr int maxSide = 1024;

} // namespace

ApplicationPictures::ApplicationPictures(Applications &applications)
    : QQuickImageProvider(Image, ForceAsynchronousImageLoading)
    , m_applications(applications) {}

QImage ApplicationPictures::requestImage(const QString &id, QSize *size,
                                         const QSize &requestedSize) {
    const int asked = std::max(requestedSize.width(), requestedSize.height());
    const int side = asked > 0 ? std::min(asked, maxSide) : defaultSide;
    QImage picture = m_applications.icon(QUrl::fromPercentEncoding(id.toUtf8()), side);
    if (picture.isNull()) {
        picture = QImage(1, 1, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
    }
    *size = picture.size();
    return picture;
}

} // namespace perchly
