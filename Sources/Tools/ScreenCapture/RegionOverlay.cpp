#include "RegionOverlay.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPaintEvent>

#include <algorithm>

namespace perchly {

namespace {

constexpr QColor plateColor(11, 13, 15, 235);
constexpr QColor textColor(255, 255, 255, 235);
constexpr QColor dimming(0, 0, 0, 115);
constexpr QColor hairline(0, 0, 0, 140);
constexpr int gap = 10;

QImage dimmedCopy(const QImage &picture) {
    QImage dimmed = picture;
    QPainter painter(&dimmed);
    painter.fillRect(dimmed.rect(), dimming);
    return dimmed;
}

QString hintText() {
    return QStringLiteral("Drag to select  ·  Esc cancels");
}

} // namespace

RegionOverlay::RegionOverlay(QImage picture, QList<QRect> displays, double scale)
    : m_picture(std::move(picture))
    , m_dimmed(dimmedCopy(m_picture))
    , m_displays(std::move(displays))
    , m_scale(scale)
    , m_font(QStringLiteral("Inter")) {
    m_font.setPixelSize(scaled(12));
    m_font.setWeight(QFont::Medium);
    setTitle(QStringLiteral("Perchly capture"));
    setFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
             Qt::BypassWindowManagerHint);
    setCursor(Qt::CrossCursor); // shown while the pointer is grabbed, too
    setGeometry(m_picture.rect());
}

void RegionOverlay::setPointer(const QPoint &pixel) {
    const QRect before = hintPlate();
    m_pointer = pixel;
    if (!m_region && hintPlate() != before) {
        update(QRegion(before) + hintPlate());
    }
}

void RegionOverlay::setRegion(const std::optional<QRect> &region) {
    const QRegion before = drawnArea();
    m_region = region;
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
    if (plate.bottom() > display.bottom()) { // above it instead, or else inside
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
    // Outside the rectangle, so that nothing of what is captured is hidden.
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
        painter.drawImage(part.topLeft(), m_dimmed, part);
    }
    if (m_region) {
        drawRegion(painter);
        drawPlate(painter, sizePlate(), sizeText());
    } else {
        drawPlate(painter, hintPlate(), hintText());
    }
}

} // namespace perchly
