#include "FactsView.h"

#include "PreviewLook.h"

#include <QIcon>
#include <QPainter>
#include <QPainterPath>

namespace perchly {

namespace {

constexpr int iconSide = 96;
constexpr int textHeight = 60;

/// A sheet with a folded corner, where the icon theme has nothing.
void drawSheet(QPainter &painter, const QRectF &place) {
    const QRectF sheet = place.adjusted(14, 4, -14, -4);
    constexpr double fold = 22;
    QPainterPath outline;
    outline.moveTo(sheet.topLeft());
    outline.lineTo(sheet.right() - fold, sheet.top());
    outline.lineTo(sheet.right(), sheet.top() + fold);
    outline.lineTo(sheet.bottomRight());
    outline.lineTo(sheet.bottomLeft());
    outline.closeSubpath();
    outline.moveTo(sheet.right() - fold, sheet.top());
    outline.lineTo(sheet.right() - fold, sheet.top() + fold);
    outline.lineTo(sheet.right(), sheet.top() + fold);
    painter.setPen(QPen(previewlook::mint, 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(outline);
}

} // namespace

void FactsView::show(const FileFacts &facts) {
    m_facts = facts;
    update();
}

void FactsView::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QRect icon(0, 0, iconSide, iconSide);
    icon.moveCenter(rect().center() - QPoint(0, textHeight / 2));
    const QIcon themed = QIcon::fromTheme(m_facts.iconName);
    if (themed.isNull()) {
        drawSheet(painter, icon);
    } else {
        themed.paint(&painter, icon);
    }
    QRect line(24, icon.bottom() + 18, width() - 48, 22);
    painter.setFont(previewlook::font(15, QFont::DemiBold));
    painter.setPen(previewlook::foreground);
    painter.drawText(line, Qt::AlignCenter,
                     painter.fontMetrics().elidedText(m_facts.name, Qt::ElideMiddle, line.width()));
    line.translate(0, 24);
    painter.setFont(previewlook::font(12));
    painter.setPen(previewlook::secondary);
    painter.drawText(line, Qt::AlignCenter, m_facts.details);
}

} // namespace perchly
