#pragma once

#include <QQuickImageProvider>

namespace perchly {

/// Draws the pictures for SoftShadow: "image://shadows/RADIUS/SPREAD" (in pixels) is the shadow
/// around a rounded rectangle whose sides are two pixels longer than its corners. They are not
/// files, since reading any image file would make Qt load all its image plug-ins before the shelf
/// is first shown.
class ShadowPictures : public QQuickImageProvider {
public:
    ShadowPictures();

    QImage requestImage(const QString &id, QSize *size, const QSize &requestedSize) override;
};

} // namespace perchly
