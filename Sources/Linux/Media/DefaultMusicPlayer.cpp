#include "DefaultMusicPlayer.h"

#include "Applications.h"
#include "MusicApplication.h"

#include <QFile>

namespace perchly {

DefaultMusicPlayer::DefaultMusicPlayer(Applications &applications)
    : m_applications(applications) {}

void DefaultMusicPlayer::open() {
    m_workers.run(findMusicApplication, [this](const auto &application) {
        if (application) {
            m_applications.open(QFile::decodeName(application->path.c_str()));
        }
    });
}

} // namespace perchly
