#include "DragSource.h"

#include "Theme.h"

#include <QDrag>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QMimeData>
#include <QPainter>
#include <QPointer>
#include <QQuickWindow>
#include <QStyleHints>

namespace perchly {

namespace {

constexpr double maxLabelWidth = 240;
constexpr double labelHeight = 26;
constexpr double labelMargin = 10;

QMimeData *mimeData(const QList<QUrl> &urls) {
    QStringList texts;
    for (const QUrl &url : urls) {
        texts.append(url.isLocalFile() ? url.toLocalFile() : url.toString(QUrl::FullyEncoded));
    }
    auto *data = new QMimeData;
    data->setUrls(urls);
    data->setText(texts.join(QLatin1Char('\n')));
    return data;
}

QPixmap picture(const QString &label, double ratio) {
    QFont font(Theme::family());
    font.setPixelSize(12);
    const QFontMetricsF metrics(font);
    const QString text = metrics.elidedText(label, Qt::ElideMiddle, maxLabelWidth);
    const QSizeF size(metrics.horizontalAdvance(text) + 2 * labelMargin, labelHeight);
    QPixmap result((size * ratio).toSize());
    result.setDevicePixelRatio(ratio);
    result.fill(Qt::transparent);
    QPainter painter(&result);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Theme::floating());
    painter.drawRoundedRect(QRectF(QPointF(), size), labelHeight / 2, labelHeight / 2);
    painter.setPen(Theme::text());
    painter.setFont(font);
    painter.drawText(QRectF(QPointF(), size), Qt::AlignCenter, text);
    return result;
}

} // namespace

DragSource::DragSource(QQuickItem *parent)
    : QQuickItem(parent) {
    setAcceptedMouseButtons(Qt::LeftButton);
}

void DragSource::setDragging(bool dragging) {
    if (m_dragging != dragging) {
        m_dragging = dragging;
        Q_EMIT draggingChanged();
    }
}

void DragSource::mousePressEvent(QMouseEvent *event) {
    m_pressedAt = event->position();
    setKeepMouseGrab(true); // otherwise a list around it would scroll
    event->accept();
}

void DragSource::mouseMoveEvent(QMouseEvent *event) {
    const double distance = (event->position() - m_pressedAt).manhattanLength();
    if (m_dragging || m_urls.isEmpty() ||
        distance < QGuiApplication::styleHints()->startDragDistance()) {
        return;
    }
    setDragging(true);
    // The drag runs its own event loop, so start it after this event.
    QMetaObject::invokeMethod(this, &DragSource::drag, Qt::QueuedConnection);
}

void DragSource::mouseReleaseEvent(QMouseEvent *event) {
    if (m_dragging) {
        setDragging(false); // released before the drag began, so the drag will not end it
    } else if (contains(event->position())) {
        Q_EMIT clicked();
    }
}

void DragSource::mouseUngrabEvent() {
    setKeepMouseGrab(false);
}

void DragSource::drag() {
    if (!m_dragging) {
        return;
    }
    const QPointer<DragSource> self(this);
    // Not owned by this item, whose row may disappear during the drag.
    auto *drag = new QDrag(QCoreApplication::instance());
    drag->setMimeData(mimeData(m_urls));
    if (!m_label.isEmpty()) {
        drag->setPixmap(picture(m_label, window() ? window()->effectiveDevicePixelRatio() : 1));
        drag->setHotSpot(QPoint(-12, -8));
    }
    drag->exec(Qt::CopyAction);
    if (self) {
        ungrabMouse();
        setDragging(false);
    }
}

} // namespace perchly
