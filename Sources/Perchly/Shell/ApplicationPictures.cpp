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
    const QString theme = QUrl::fromPercentEncoding(id.section(u'/', 0, 0).toUtf8());
    const QString path = QUrl::fromPercentEncoding(id.section(u'/', 1).toUtf8());
    QImage picture = m_applications.icon(path, side, theme);
    if (picture.isNull()) {
        picture = QImage(1, 1, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
    }
    *size = picture.size();
    return picture;
}

} // namespace perchly
