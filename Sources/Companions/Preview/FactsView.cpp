#include "FactsView.h"

#include "PreviewLook.h"

#include <QIcon>
#include <QPainter>

namespace perchly {

namespace {

constexpr int iconSide = 96;
constexpr int textHeight = 60;

} // namespace

void FactsView::show(const FileFacts &facts) {
    m_facts = facts;
    setAccessibleName(facts.name);
    setAccessibleDescription(facts.details);
    update();
}

void FactsView::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    QRect icon(0, 0, iconSide, iconSide);
    icon.moveCenter(rect().center() - QPoint(0, textHeight / 2));
    const QIcon sheet(QStringLiteral(":/sheet.png")); // if the icon theme has no icon
    QIcon::fromTheme(m_facts.iconName, sheet).paint(&painter, icon);
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
