#pragma once

#include "FactsView.h"
#include "MediaControls.h"
#include "PictureView.h"

#include <QAudioOutput>
#include <QMediaPlayer>
#include <QStackedLayout>
#include <QVideoSink>

namespace perchly {

/// Plays the sound or video of one file, without its sound where there is nothing to hear it with.
/// Sound alone shows the facts of its file. Making one may take long: the first in a person's life
/// looks through the plug-ins of the media library.
class MediaView : public QWidget {
    Q_OBJECT
public:
    explicit MediaView(QWidget *parent = nullptr);

    void play(const QString &path, const FileFacts &facts);
    void pause();
    /// Pauses until resume() lets it go on, if it plays.
    void suspend();
    void resume();
    /// The first picture of a video was there.
    [[nodiscard]] bool hasBegun() const { return m_stack.currentWidget() == &m_picture; }

Q_SIGNALS:
    /// It cannot be played. Nothing more is to be asked of it: the library would wait for an
    /// answer.
    void failed();
    /// The video's first frame, in pixels.
    void firstFrame(const QSize &size);

private:
    void show(const QVideoFrame &frame);
    void watchBeginning();
    void updateProgress();

    bool m_isSuspended = false;
    QAudioOutput m_sound;
    QVideoSink m_video;
    QMediaPlayer m_player; ///< ends before what it plays to
    QWidget m_screen;      ///< before what is in it, which it would delete
    FactsView m_facts;
    PictureView m_picture;
    QStackedLayout m_stack;
    MediaControls m_controls;
};

} // namespace perchly
