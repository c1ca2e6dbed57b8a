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

/// Plays a sound or video file, muted if there is no audio output. For sound it shows the facts of
/// the file. A user's very first player may take long to create: GStreamer scans its plug-ins.
class MediaView : public QWidget {
    Q_OBJECT
public:
    MediaView(const QString &path, const FileFacts &facts);

    void pause();
    /// Pauses, if playing, until resume().
    void suspend();
    void resume();

Q_SIGNALS:
    /// The file cannot be played. Delete the view without any further call, which would wait for
    /// GStreamer.
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
    bool m_hasBegun = false; ///< this attempt has shown a frame
    bool m_isSuspended = false;
    QAudioOutput m_sound;
    QVideoSink m_video;
    std::unique_ptr<QMediaPlayer> m_player; ///< declared so that it is destroyed before its outputs
    QWidget m_screen;                       ///< destroyed after its child widgets
    FactsView m_facts;
    PictureView m_picture;
    QStackedLayout m_stack;
    QPushButton m_button;
    QSlider m_position{Qt::Horizontal}; ///< in milliseconds
    QLabel m_time;
};

} // namespace perchly
