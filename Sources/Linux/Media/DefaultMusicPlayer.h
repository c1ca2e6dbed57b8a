#pragma once

#include "MusicPlayer.h"

#include <QObject>
#include <QThreadPool>

namespace perchly {

class Applications;

/// Opens the user's application for music; see findMusicApplication.
class DefaultMusicPlayer : public MusicPlayer {
public:
    /// The applications must outlive it.
    explicit DefaultMusicPlayer(Applications &applications);

    void open() override;

private:
    Applications &m_applications;
    QObject m_receiver;
    QThreadPool m_pool; ///< destroyed first: it waits for the thread
};

} // namespace perchly
