#include "DefaultMusicPlayer.h"

#include "Applications.h"
#include "MusicApplication.h"

#include <QFile>

namespace perchly {

DefaultMusicPlayer::DefaultMusicPlayer(Applications &applications)
    : m_applications(applications) {
    m_pool.setMaxThreadCount(1);
    m_pool.setExpiryTimeout(1000);
}

void DefaultMusicPlayer::open() {
    m_pool.start([this] {
        const auto application = findMusicApplication();
        if (!application) {
            return;
        }
        const QString path = QFile::decodeName(QByteArray::fromStdString(application->path));
        QMetaObject::invokeMethod(
            &m_receiver, [this, path] { m_applications.open(path); }, Qt::QueuedConnection);
    });
}

} // namespace perchly
