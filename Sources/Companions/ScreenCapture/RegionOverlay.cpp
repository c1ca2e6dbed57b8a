#include "RegionOverlay.h"

#include <QCursor>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPaintEvent>

#include <algorithm>
#include <chrono>

namespace perchly {

using namespace std::chrono_literals;

namespace {

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
    , m_pointer(QCursor::pos()) {
    m_font.setPixelSize(scaled(12));
    m_font.setWeight(QFont::Medium);
    setTitle(tr("Perchly capture"));
    setFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
             Qt::BypassWindowManagerHint);
    setCursor(Qt::CrossCursor);
    setGeometry(m_picture.rect());
    m_idle.setSingleShot(true);
    connect(&m_idle, &QTimer::timeout, this, &RegionOverlay::cancelled);
    m_idle.start(idleTimeout);
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
    m_start = (event->position() * pixelsPerPoint()).toPoint();
    follow(event->position());
}

void RegionOverlay::mouseMoveEvent(QMouseEvent *event) {
    follow(event->position());
}

void RegionOverlay::mouseReleaseEvent(QMouseEvent *event) {
    if (event->button() == Qt::LeftButton && m_start) {
        follow(event->position());
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

double RegionOverlay::pixelsPerPoint() const {
    return double(m_picture.width()) / width();
}

QRect RegionOverlay::toPixels(const QRect &area) const {
    const double ratio = pixelsPerPoint();
    return QRectF(QPointF(area.topLeft()) * ratio, QSizeF(area.size()) * ratio).toAlignedRect();
}

QRegion RegionOverlay::toPoints(const QRegion &area) const {
    const double ratio = 1 / pixelsPerPoint();
    QRegion points;
    for (const QRect &part : area) {
        points +=
            QRectF(QPointF(part.topLeft()) * ratio, QSizeF(part.size()) * ratio).toAlignedRect();
    }
    return points;
}

void RegionOverlay::follow(const QPointF &position) {
    const QPoint pointer = (position * pixelsPerPoint()).toPoint();
    const QRegion before = drawnArea();
    m_pointer = pointer;
    m_region.reset();
    if (m_start && *m_start != pointer) {
        const auto [left, right] = std::minmax({m_start->x(), pointer.x()});
        const auto [top, bottom] = std::minmax({m_start->y(), pointer.y()});
        m_region = QRect(QPoint(left, top), QPoint(right, bottom)).intersected(m_picture.rect());
    }
    update(toPoints(before + drawnArea()));
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
    painter.setClipRegion(event->region());
    painter.scale(1 / pixelsPerPoint(), 1 / pixelsPerPoint());
    for (const QRect &points : event->region()) {
        const QRect part = toPixels(points);
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
