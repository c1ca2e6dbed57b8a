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
    , m_defaultTheme(QIcon::themeName()) {}

void GioApplications::open(const QString &path, Completion completion) {
    if (QDir::isAbsolutePath(path) && !isInApplicationFolders(path)) {
        openUrl(QUrl::fromLocalFile(path), std::move(completion));
    } else {
        launch(path, std::move(completion));
    }
}

void GioApplications::launch(const QString &path, Completion completion) {
    m_workers.run(
        [path, notices = m_notices.forLaunch()](_GCancellable *cancellable) {
            return giolaunch::application(path, notices, cancellable);
        },
        orNothing(std::move(completion)));
}

std::shared_ptr<IconTheme> GioApplications::icons(const std::optional<QString> &theme) {
    const QString wanted = theme.value_or(QString()).isEmpty() ? m_defaultTheme : *theme;
    const QMutexLocker lock(&m_mutex);
    if (!m_icons || (theme && m_icons->name() != wanted)) {
        m_icons = std::make_shared<IconTheme>(wanted, IconTheme::standardFolders());
    }
    return m_icons;
}

QImage GioApplications::icon(const QString &path, int side, const QString &theme) {
    const QString name = desktopEntryText(path, G_KEY_FILE_DESKTOP_KEY_ICON);
    return name.isEmpty() ? QImage() : icons(theme)->image(name, side);
}

QImage GioApplications::themeIcon(const QStringList &names, int side) {
    const auto icons = this->icons(std::nullopt);
    QImage image;
    for (const QString &name : names) {
        if (image.isNull()) {
            image = icons->image(name, side);
        }
    }
    return image;
}

void GioApplications::openUrl(const QUrl &url, Completion completion) {
    m_workers.run(
        [url, notices = m_notices.forLaunch()](_GCancellable *cancellable) {
            return giolaunch::url(url, notices, cancellable);
        },
        orNothing(std::move(completion)));
}

} // namespace perchly
