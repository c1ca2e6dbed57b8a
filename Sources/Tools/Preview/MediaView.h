#pragma once

#include "FactsView.h"
#include "MediaControls.h"
#include "PictureView.h"

#include <QAudioOutput>
#include <QMediaPlayer>
#include <QStackedLayout>
#include <QVideoSink>

namespace perchly {

/// Plays sound and video. Sound alone shows the facts of its file.
class MediaView : public QWidget {
    Q_OBJECT
public:
    explicit MediaView(QWidget *parent = nullptr);

    void play(const QString &path, const FileFacts &facts);
    void stop();

Q_SIGNALS:
    /// It cannot be played.
    void failed();
    /// The video's first frame, in pixels.
    void firstFrame(const QSize &size);

private:
    void show(const QVideoFrame &frame);
    void updateProgress();

    QMediaPlayer m_player;
    QAudioOutput m_sound;
    QVideoSink m_video;
    FactsView m_facts;
    PictureView m_picture;
    QWidget m_screen;
    QStackedLayout m_stack;
    MediaControls m_controls;
};

} // namespace perchly
