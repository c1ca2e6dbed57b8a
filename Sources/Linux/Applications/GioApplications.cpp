#include "GioApplications.h"

#include "ApplicationFolders.h"
#include "GioLaunch.h"

#include <QDir>
#include <QIcon>

#include <gio/gio.h>

namespace perchly {

GioApplications::GioApplications(StartNotices notices)
    : m_notices(std::move(notices))
    , m_icons(QIcon::themeName(), IconTheme::standardFolders())
    , m_cancellable(g_cancellable_new(), [](GCancellable *object) { g_object_unref(object); }) {
    m_pool.setMaxThreadCount(8); // a few slow services must not hold up the next application
    m_pool.setExpiryTimeout(1000);
}

GioApplications::~GioApplications() {
    g_cancellable_cancel(m_cancellable.get());
}

void GioApplications::open(const QString &path, Completion completion) {
    if (QDir::isAbsolutePath(path) && !isInApplicationFolders(path)) {
        openUrl(QUrl::fromLocalFile(path), std::move(completion));
    } else {
        launch(path, std::move(completion));
    }
}

void GioApplications::launch(const QString &path, Completion completion) {
    start(
        [this, path](GCancellable *cancellable) {
            return giolaunch::application(path, m_notices, cancellable);
        },
        std::move(completion));
}

QImage GioApplications::icon(const QString &path, int side) {
    const QString name = iconOfEntry(path);
    return name.isEmpty() ? QImage() : m_icons.image(name, side);
}

void GioApplications::openUrl(const QUrl &url, Completion completion) {
    start([this,
           url](GCancellable *cancellable) { return giolaunch::url(url, m_notices, cancellable); },
          std::move(completion));
}

void GioApplications::start(Launch function, Completion completion) {
    m_pool.start(
        [this, function = std::move(function), completion = std::move(completion)]() mutable {
            const QString error = function(m_cancellable.get());
            if (completion) {
                QMetaObject::invokeMethod(
                    &m_receiver, [completion = std::move(completion), error] { completion(error); },
                    Qt::QueuedConnection);
            }
        });
}

} // namespace perchly
