#include "GioApplications.h"

#include "ApplicationFolders.h"
#include "GioLaunch.h"
#include "KeyFile.h"

#include <QDir>
#include <QIcon>

namespace perchly {

namespace {

Applications::Completion orNothing(Applications::Completion completion) {
    return completion ? std::move(completion) : [](const QString &) {};
}

} // namespace

GioApplications::GioApplications(StartNotices notices)
    : m_notices(std::move(notices))
    , m_icons(QIcon::themeName(), IconTheme::standardFolders()) {}

void GioApplications::open(const QString &path, Completion completion) {
    if (QDir::isAbsolutePath(path) && !isInApplicationFolders(path)) {
        openUrl(QUrl::fromLocalFile(path), std::move(completion));
    } else {
        launch(path, std::move(completion));
    }
}

void GioApplications::launch(const QString &path, Completion completion) {
    m_workers.run(
        [this, path](_GCancellable *cancellable) {
            return giolaunch::application(path, m_notices, cancellable);
        },
        orNothing(std::move(completion)));
}

QImage GioApplications::icon(const QString &path, int side) {
    const QString name = desktopEntryText(path, G_KEY_FILE_DESKTOP_KEY_ICON);
    return name.isEmpty() ? QImage() : m_icons.image(name, side);
}

QImage GioApplications::themeIcon(const QStringList &names, int side) {
    QImage image;
    for (const QString &name : names) {
        if (image.isNull()) {
            image = m_icons.image(name, side);
        }
    }
    return image;
}

void GioApplications::openUrl(const QUrl &url, Completion completion) {
    m_workers.run(
        [this, url](_GCancellable *cancellable) {
            return giolaunch::url(url, m_notices, cancellable);
        },
        orNothing(std::move(completion)));
}

} // namespace perchly
