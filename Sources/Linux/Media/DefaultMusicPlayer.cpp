#include "DefaultMusicPlayer.h"

#include "Applications.h"
#include "MusicApplication.h"

#include <QCoreApplication>
#include <QFile>

namespace perchly {

DefaultMusicPlayer::DefaultMusicPlayer(Applications &applications)
    : m_applications(applications) {}

void DefaultMusicPlayer::open(Completion completion) {
    m_workers.run(findMusicApplication, [this, completion](const auto &application) {
        if (application) {
            m_applications.open(QFile::decodeName(application->path.c_str()), completion);
        } else {
            completion(QCoreApplication::translate("DefaultMusicPlayer",
                                                   "No music application is installed."));
        }
    });
}

} // namespace perchly
