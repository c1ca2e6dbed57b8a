#pragma once

#include "FactsView.h"
#include "PictureView.h"

#include <QAudioOutput>
#include <QLabel>
#include <QMediaPlayer>
#include <QPushButton>
#include <QSlider>
#include <QStackedLayout>
#include <QVideoSink>

#include <memory>

namespace perchly {

/// Plays the sound or video of one file, without its sound where there is nothing to hear it with.
/// Sound alone shows the facts of its file. The first player that a user ever makes may take long:
/// GStreamer looks through its plug-ins.
class MediaView : public QWidget {
    Q_OBJECT
public:
    MediaView(const QString &path, const FileFacts &facts);

    void pause();
    /// Pauses until resume() lets it go on, if it plays.
    void suspend();
    void resume();

Q_SIGNALS:
    /// It cannot be played. Delete the view without asking anything more of it, which would wait
    /// for GStreamer.
    void failed();
    /// The video's first frame, in pixels.
    void firstFrame(const QSize &size);

private:
    void play();
    void giveUp();
    void toggle();
    [[nodiscard]] QLayout *makeControls();
    void showPlaying(bool playing);
    void show(const QVideoFrame &frame);
    void updateProgress();

    QUrl m_file;
    int m_tries = 0;
    bool m_hasBegun = false; ///< this try has shown a frame
    bool m_isSuspended = false;
    QAudioOutput m_sound;
    QVideoSink m_video;
    std::unique_ptr<QMediaPlayer> m_player; ///< ends before what it plays to
    QWidget m_screen;                       ///< before its children, which it would delete
    FactsView m_facts;
    PictureView m_picture;
    QStackedLayout m_stack;
    QPushButton m_button;
    QSlider m_position{Qt::Horizontal}; ///< in milliseconds
    QLabel m_time;
};

} // namespace perchly
