#pragma once

#include "MusicPlayer.h"
#include "Workers.h"

namespace perchly {

class Applications;

/// Opens the user's music application; see findMusicApplication.
class DefaultMusicPlayer : public MusicPlayer {
public:
    /// `applications` must outlive it.
    explicit DefaultMusicPlayer(Applications &applications);

    void open(Completion completion) override;

private:
    Applications &m_applications;
    Workers m_workers{1};
};

} // namespace perchly
