#include "MediaControls.h"

#include "PreviewLook.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <limits>

namespace perchly {

namespace {

QString timeText(qint64 milliseconds) {
    const qint64 seconds = std::max<qint64>(milliseconds, 0) / 1000;
    return QStringLiteral("%1:%2").arg(seconds / 60).arg(seconds % 60, 2, 10, QLatin1Char('0'));
}

} // namespace

PlayButton::PlayButton(QWidget *parent)
    : QAbstractButton(parent) {
    setFixedSize(36, 36);
    setPlaying(false);
}

void PlayButton::setPlaying(bool playing) {
    m_playing = playing;
    setAccessibleName(playing ? QStringLiteral("Pause") : QStringLiteral("Play"));
    update();
}

void PlayButton::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
    } else {
        QAbstractButton::keyPressEvent(event);
    }
}

void PlayButton::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(hasFocus() ? QPen(previewlook::mint, 1.5) : QPen(Qt::NoPen));
    painter.setBrush(QColor(255, 255, 255, underMouse() || isDown() ? 40 : 22));
    painter.drawEllipse(QRectF(rect()).adjusted(1, 1, -1, -1));
    painter.setPen(Qt::NoPen);
    painter.setBrush(previewlook::foreground);
    if (m_playing) {
        painter.drawRoundedRect(QRectF(12.5, 11.5, 4, 13), 1, 1);
        painter.drawRoundedRect(QRectF(19.5, 11.5, 4, 13), 1, 1);
    } else {
        painter.drawPolygon(QPolygonF({{14, 11}, {25, 18}, {14, 25}}));
    }
}

MediaControls::MediaControls(QWidget *parent)
    : QWidget(parent)
    , m_slider(Qt::Horizontal) {
    setFocusProxy(&m_button);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(18, 6, 18, 6);
    row->setSpacing(14);
    row->addWidget(&m_button);
    row->addWidget(&m_slider);
    row->addWidget(&m_time);
    m_slider.setAccessibleName(QStringLiteral("Position"));
    m_slider.setFocusPolicy(Qt::NoFocus); // left and right go from item to item
    m_time.setFont(previewlook::font(11));
    QPalette palette = m_time.palette();
    palette.setColor(QPalette::WindowText, previewlook::secondary);
    m_time.setPalette(palette);
    connect(&m_button, &QAbstractButton::clicked, this, &MediaControls::toggled);
    connect(&m_slider, &QSlider::sliderMoved, this,
            [this](int position) { Q_EMIT sought(position); });
}

void MediaControls::setProgress(qint64 position, qint64 duration) {
    constexpr qint64 most = std::numeric_limits<int>::max();
    m_slider.setRange(0, int(std::clamp<qint64>(duration, 0, most)));
    if (!m_slider.isSliderDown()) {
        m_slider.setValue(int(std::clamp<qint64>(position, 0, most)));
    }
    m_time.setText(duration > 0 ? timeText(position) + QStringLiteral(" / ") + timeText(duration)
                                : timeText(position));
}

} // namespace perchly
