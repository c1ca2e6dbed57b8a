#include "MediaView.h"

#include "PreviewLook.h"

#include <QAudioDevice>
#include <QIcon>
#include <QMediaDevices>
#include <QTimer>
#include <QVBoxLayout>
#include <QVideoFrame>

#include <algorithm>
#include <limits>
#include <utility>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr int maxTries = 4;

QString timeText(qint64 milliseconds) {
    const qint64 seconds = std::max<qint64>(milliseconds, 0) / 1000;
    return QStringLiteral("%1:%2").arg(seconds / 60).arg(seconds % 60, 2, 10, QLatin1Char('0'));
}

int sliderValue(qint64 milliseconds) {
    return int(std::clamp<qint64>(milliseconds, 0, std::numeric_limits<int>::max()));
}

} // namespace

MediaView::MediaView(const QString &path, const FileFacts &facts)
    : m_file(QUrl::fromLocalFile(path))
    , m_stack(&m_screen) {
    setFocusProxy(&m_button);
    m_facts.show(facts);
    m_picture.setAccessibleName(facts.name);
    m_stack.addWidget(&m_facts);
    m_stack.addWidget(&m_picture);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(&m_screen, 1);
    column->addLayout(makeControls());
    connect(&m_video, &QVideoSink::videoFrameChanged, this, &MediaView::show);
    play();
}

QLayout *MediaView::makeControls() {
    auto *row = new QHBoxLayout;
    row->setContentsMargins(18, 6, 18, 6);
    row->setSpacing(14);
    row->addWidget(&m_button);
    row->addWidget(&m_position);
    row->addWidget(&m_time);
    m_button.setFixedSize(36, 36);
    m_button.setIconSize(m_button.size());
    m_button.setAutoDefault(true); // so that Return presses it, too
    showPlaying(false);
    m_position.setAccessibleName(tr("Position"));
    m_position.setFocusPolicy(Qt::NoFocus); // left and right switch items
    m_time.setFont(previewlook::font(11));
    QPalette palette = m_time.palette();
    palette.setColor(QPalette::WindowText, previewlook::secondary);
    m_time.setPalette(palette);
    connect(&m_button, &QAbstractButton::clicked, this, &MediaView::toggle);
    connect(&m_position, &QSlider::sliderMoved, this,
            [this](int position) { m_player->setPosition(position); });
    return row;
}

void MediaView::showPlaying(bool playing) {
    m_button.setIcon(QIcon(playing ? QStringLiteral(":/pause.png") : QStringLiteral(":/play.png")));
    m_button.setAccessibleName(playing ? tr("Pause") : tr("Play"));
}

void MediaView::play() {
    ++m_tries;
    m_hasBegun = false;
    m_player = std::make_unique<QMediaPlayer>();
    // With audio but no output device, a video would stop at its first frame.
    if (!QMediaDevices::defaultAudioOutput().isNull()) {
        m_player->setAudioOutput(&m_sound);
    }
    m_player->setVideoSink(&m_video);
    QMediaPlayer *player = m_player.get();
    connect(player, &QMediaPlayer::positionChanged, this, &MediaView::updateProgress);
    connect(player, &QMediaPlayer::durationChanged, this, &MediaView::updateProgress);
    connect(player, &QMediaPlayer::playbackStateChanged, this,
            [this](QMediaPlayer::PlaybackState state) {
                showPlaying(state == QMediaPlayer::PlayingState);
            });
    connect(player, &QMediaPlayer::errorOccurred, this, &MediaView::giveUp, Qt::QueuedConnection);
    player->setSource(m_file);
    player->play();
    if (window()->isMinimized()) {
        suspend();
    }
}

void MediaView::giveUp() {
    // GStreamer aborts a video whose first frame is not taken within a third of a second, which
    // happens while decoders are loaded for the first time.
    if (m_hasBegun && m_tries < maxTries) {
        play();
    } else {
        Q_EMIT failed();
    }
}

void MediaView::pause() {
    m_isSuspended = false;
    m_player->pause();
}

void MediaView::suspend() {
    if (m_player->playbackState() == QMediaPlayer::PlayingState) {
        m_player->pause();
        m_isSuspended = true;
    }
}

void MediaView::resume() {
    if (std::exchange(m_isSuspended, false)) {
        m_player->play();
    }
}

void MediaView::toggle() {
    if (m_player->playbackState() == QMediaPlayer::PlayingState) {
        m_player->pause();
    } else {
        m_player->play();
    }
}

void MediaView::show(const QVideoFrame &frame) {
    const QImage picture = frame.toImage();
    if (picture.isNull()) {
        return;
    }
    m_picture.show(picture);
    if (!std::exchange(m_hasBegun, true)) {
        m_stack.setCurrentWidget(&m_picture);
        QTimer::singleShot(1s, m_player.get(), [this] {
            if (m_player->mediaStatus() == QMediaPlayer::LoadingMedia) { // playback is stuck
                giveUp();
            }
        });
        Q_EMIT firstFrame(picture.size());
    }
}

void MediaView::updateProgress() {
    const qint64 position = m_player->position();
    const qint64 duration = m_player->duration(); // 0 if unknown
    m_position.setRange(0, sliderValue(duration));
    if (!m_position.isSliderDown()) {
        m_position.setValue(sliderValue(position));
    }
    m_time.setText(duration > 0 ? timeText(position) + QStringLiteral(" / ") + timeText(duration)
                                : timeText(position));
}

} // namespace perchly
