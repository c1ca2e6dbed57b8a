#pragma once

#include <QQuickImageProvider>

namespace perchly {

class Applications;

/// Gives views the icons of applications: "image://applications/", the icon theme, "/" and the
/// percent-encoded path of the desktop entry, in the requested size. Icons are read on Qt's image
/// thread. An application without an icon gives a single transparent pixel.
class ApplicationPictures : public QQuickImageProvider {
public:
    /// `applications` must outlive the engine.
    explicit ApplicationPictures(Applications &applications);

    QImage requestImage(const QString &id, QSize *size, const QSize &requestedSize) override;

private:
    Applications &m_applications;
};

} // namespace perchly
