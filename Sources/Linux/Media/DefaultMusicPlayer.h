#pragma once

#include "MusicPlayer.h"

#include <QObject>
#include <QThreadPool>

namespace perchly {

class Applications;

/// Opens what the desktop's file types say is for music.
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
