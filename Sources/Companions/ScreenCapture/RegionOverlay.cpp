#include "RegionOverlay.h"

#include <QCursor>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPaintEvent>

#include <algorithm>
#include <xcb/screensaver.h>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr auto grabTimeout = 1s;
constexpr auto grabRetryDelay = 20ms;
constexpr auto idleTimeout = 60s;

constexpr QColor plateColor(11, 13, 15, 235);
constexpr QColor textColor(255, 255, 255, 235);
constexpr QColor dimming(0, 0, 0, 115);
constexpr QColor hairline(0, 0, 0, 140);
constexpr int gap = 10;

QString hintText() {
    return RegionOverlay::tr("Drag to select  ·  Esc cancels");
}

} // namespace

RegionOverlay::RegionOverlay(QImage picture, QList<QRect> displays, double scale)
    : m_picture(std::move(picture))
    , m_displays(std::move(displays))
    , m_scale(scale)
    , m_font(QStringLiteral("Inter"))
    , m_grabDeadline(grabTimeout)
    , m_pointer(QCursor::pos()) {
    m_font.setPixelSize(scaled(12));
    m_font.setWeight(QFont::Medium);
    setTitle(tr("Perchly capture"));
    setFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
             Qt::BypassWindowManagerHint);
    setCursor(Qt::CrossCursor);
    setGeometry(m_picture.rect());
    m_grab.setSingleShot(true);
    connect(&m_grab, &QTimer::timeout, this, &RegionOverlay::grabInput);
    m_grab.start(0ms);
    m_idle.setSingleShot(true);
    connect(&m_idle, &QTimer::timeout, this, &RegionOverlay::cancelled);
    m_idle.start(idleTimeout);
    watchScreenSaver();
}

void RegionOverlay::watchScreenSaver() {
    const auto *extension = xcb_get_extension_data(m_connection.get(), &xcb_screensaver_id);
    const int type = extension == nullptr ? -1 : extension->first_event + XCB_SCREENSAVER_NOTIFY;
    connect(&m_connection, &XcbConnection::eventArrived, this, [this, type](const auto *event) {
        const auto *notice = reinterpret_cast<const xcb_screensaver_notify_event_t *>(event);
        if (event->response_type == type && notice->state == XCB_SCREENSAVER_STATE_ON) {
            Q_EMIT cancelled();
        }
    });
    xcb_screensaver_select_input(m_connection.get(), m_connection.root(),
                                 XCB_SCREENSAVER_EVENT_NOTIFY_MASK);
    xcb_flush(m_connection.get());
}

// Fails until the window is mapped, and while another program, such as one with an open menu, holds
// the keyboard. Qt does not report a failed pointer grab, but this window is above all others.
void RegionOverlay::grabInput() {
    setMouseGrabEnabled(true);
    if (setKeyboardGrabEnabled(true)) {
        return;
    }
    if (m_grabDeadline.hasExpired()) {
        Q_EMIT failed();
    } else {
        m_grab.start(grabRetryDelay);
    }
}

bool RegionOverlay::event(QEvent *event) {
    if (event->isInputEvent()) {
        m_idle.start(idleTimeout);
    }
    return QRasterWindow::event(event);
}

void RegionOverlay::mousePressEvent(QMouseEvent *event) {
    if (event->button() != Qt::LeftButton) {
        Q_EMIT cancelled();
        return;
    }
    m_start = event->position().toPoint();
    follow(*m_start);
}

void RegionOverlay::mouseMoveEvent(QMouseEvent *event) {
    follow(event->position().toPoint());
}

void RegionOverlay::mouseReleaseEvent(QMouseEvent *event) {
    if (event->button() == Qt::LeftButton && m_start) {
        follow(event->position().toPoint());
        m_start.reset();
        if (m_region) {
            Q_EMIT selected(*m_region);
        }
    }
}

void RegionOverlay::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Escape) {
        Q_EMIT cancelled();
    }
}

void RegionOverlay::follow(const QPoint &pointer) {
    const QRegion before = drawnArea();
    m_pointer = pointer;
    m_region.reset();
    if (m_start && *m_start != pointer) {
        const auto [left, right] = std::minmax({m_start->x(), pointer.x()});
        const auto [top, bottom] = std::minmax({m_start->y(), pointer.y()});
        m_region = QRect(QPoint(left, top), QPoint(right, bottom)).intersected(m_picture.rect());
    }
    update(before + drawnArea());
}

QRect RegionOverlay::displayAt(const QPoint &pixel) const {
    const auto found = std::ranges::find_if(
        m_displays, [&](const QRect &display) { return display.contains(pixel); });
    return found == m_displays.cend() ? m_picture.rect() : *found;
}

QSize RegionOverlay::plateSize(const QString &text) const {
    const QFontMetrics metrics(m_font);
    return {metrics.horizontalAdvance(text) + scaled(24), metrics.height() + scaled(12)};
}

QRect RegionOverlay::hintPlate() const {
    const QRect display = displayAt(m_pointer);
    QRect plate(QPoint(), plateSize(hintText()));
    plate.moveCenter(display.center());
    plate.moveBottom(display.bottom() - scaled(56));
    return plate;
}

QString RegionOverlay::sizeText() const {
    return QStringLiteral("%1 × %2").arg(m_region->width()).arg(m_region->height());
}

QRect RegionOverlay::sizePlate() const {
    const QRect display = displayAt(m_pointer);
    QRect plate(QPoint(), plateSize(sizeText()));
    plate.moveCenter(m_region->center());
    plate.moveTop(m_region->bottom() + 1 + scaled(gap));
    if (plate.bottom() > display.bottom()) { // above the region, or else inside it
        plate.moveBottom(m_region->top() - 1 - scaled(gap));
    }
    if (plate.top() < display.top()) {
        plate.moveBottom(std::min(m_region->bottom(), display.bottom()) - scaled(gap));
    }
    plate.moveRight(std::min(plate.right(), display.right() - scaled(4)));
    plate.moveLeft(std::max(plate.left(), display.left() + scaled(4)));
    return plate;
}

QRegion RegionOverlay::drawnArea() const {
    if (!m_region) {
        return hintPlate();
    }
    const int border = scaled(3);
    return QRegion(m_region->adjusted(-border, -border, border, border)) + sizePlate();
}

void RegionOverlay::drawPlate(QPainter &painter, const QRect &plate, const QString &text) const {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(plateColor);
    const double radius = plate.height() / 2.0;
    painter.drawRoundedRect(plate, radius, radius);
    painter.setFont(m_font);
    painter.setPen(textColor);
    painter.drawText(plate, Qt::AlignCenter, text);
    painter.setRenderHint(QPainter::Antialiasing, false);
}

void RegionOverlay::drawRegion(QPainter &painter) const {
    painter.drawImage(m_region->topLeft(), m_picture, *m_region);
    // Outside the rectangle, so that the border covers none of the capture.
    const int line = std::max(1, scaled(1.5));
    const int hair = std::max(1, scaled(1));
    const QRegion inner(*m_region);
    const QRegion bright(m_region->adjusted(-line, -line, line, line));
    const QRegion dark(m_region->adjusted(-line - hair, -line - hair, line + hair, line + hair));
    for (const QRect &part : dark - bright) {
        painter.fillRect(part, hairline);
    }
    for (const QRect &part : bright - inner) {
        painter.fillRect(part, Qt::white);
    }
}

void RegionOverlay::paintEvent(QPaintEvent *event) {
    QPainter painter(this);
    for (const QRect &part : event->region()) {
        painter.drawImage(part.topLeft(), m_picture, part);
        painter.fillRect(part, dimming);
    }
    if (m_region) {
        drawRegion(painter);
        drawPlate(painter, sizePlate(), sizeText());
    } else {
        drawPlate(painter, hintPlate(), hintText());
    }
}

} // namespace perchly
