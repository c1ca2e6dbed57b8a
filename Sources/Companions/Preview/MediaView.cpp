#include "MediaView.h"

#include <QAudioDevice>
#include <QMediaDevices>
#include <QTimer>
#include <QUrl>
#include <QVBoxLayout>
#include <QVideoFrame>

#include <utility>

namespace perchly {

using namespace std::chrono_literals;

MediaView::MediaView(QWidget *parent)
    : QWidget(parent)
    , m_stack(&m_screen) {
    setFocusProxy(&m_controls);
    // With a sound that nobody takes, a video would stand still at its first picture.
    if (!QMediaDevices::defaultAudioOutput().isNull()) {
        m_player.setAudioOutput(&m_sound);
    }
    m_player.setVideoSink(&m_video);
    m_stack.addWidget(&m_facts);
    m_stack.addWidget(&m_picture);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(&m_screen, 1);
    column->addWidget(&m_controls);
    connect(&m_video, &QVideoSink::videoFrameChanged, this, &MediaView::show);
    connect(&m_player, &QMediaPlayer::positionChanged, this, &MediaView::updateProgress);
    connect(&m_player, &QMediaPlayer::durationChanged, this, &MediaView::updateProgress);
    connect(&m_player, &QMediaPlayer::playbackStateChanged, this,
            [this](QMediaPlayer::PlaybackState state) {
                m_controls.setPlaying(state == QMediaPlayer::PlayingState);
            });
    connect(
        &m_player, &QMediaPlayer::errorOccurred, this, [this] { Q_EMIT failed(); },
        Qt::QueuedConnection);
    connect(&m_controls, &MediaControls::toggled, this, [this] {
        if (m_player.playbackState() == QMediaPlayer::PlayingState) {
            m_player.pause();
        } else {
            m_player.play();
        }
    });
    connect(&m_controls, &MediaControls::sought, &m_player, &QMediaPlayer::setPosition);
}

void MediaView::play(const QString &path, const FileFacts &facts) {
    m_facts.show(facts);
    m_facts.setAccessibleName(facts.name);
    m_facts.setAccessibleDescription(facts.details);
    m_picture.setAccessibleName(facts.name);
    m_stack.setCurrentWidget(&m_facts);
    m_player.setSource(QUrl::fromLocalFile(path));
    m_player.play();
}

void MediaView::pause() {
    m_isSuspended = false;
    m_player.pause();
}

void MediaView::suspend() {
    if (m_player.playbackState() == QMediaPlayer::PlayingState) {
        m_player.pause();
        m_isSuspended = true;
    }
}

void MediaView::resume() {
    if (std::exchange(m_isSuspended, false)) {
        m_player.play();
    }
}

void MediaView::show(const QVideoFrame &frame) {
    const QImage picture = frame.toImage();
    if (picture.isNull()) {
        return;
    }
    m_picture.show(picture);
    if (m_stack.currentWidget() != &m_picture) {
        m_stack.setCurrentWidget(&m_picture);
        watchBeginning();
        Q_EMIT firstFrame(picture.size());
    }
}

void MediaView::watchBeginning() {
    QTimer::singleShot(1s, this, [this] {
        if (m_player.mediaStatus() == QMediaPlayer::LoadingMedia) { // it stands still
            Q_EMIT failed();
        }
    });
}

void MediaView::updateProgress() {
    m_controls.setProgress(m_player.position(), m_player.duration());
}

} // namespace perchly
