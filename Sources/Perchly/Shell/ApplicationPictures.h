#pragma once

#include <QQuickImageProvider>

namespace perchly {

class Applications;

/// Gives views the pictures of applications: "image://applications/" and the percent-encoded path
/// of the desktop entry, in the size that the view asks for. They are read on the toolkit's own
/// thread for pictures. An application without one gives a single transparent pixel.
class ApplicationPictures : public QQuickImageProvider {
public:
    /// The applications must outlive the engine that this is added to.
    explicit ApplicationPictures(Applications &applications);

    QImage requestImage(const QString &id, QSize *size, const QSize &requestedSize) override;

private:
    Applications &m_applications;
};

} // namespace perchly
