#pragma once

#include <QList>
#include <QPointF>
#include <QQuickItem>
#include <QString>
#include <QUrl>

namespace perchly {

/// A place from which files and links are dragged into any program, which gets them themselves, to
/// copy: the originals are neither moved nor removed. Lay it behind a row's buttons; it takes the
/// left button, also within a list that can be flicked.
class DragSource : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    /// The URLs to drag; if there are none, no drag starts.
    Q_PROPERTY(QList<QUrl> urls MEMBER m_urls NOTIFY urlsChanged FINAL)
    /// The text shown beside the pointer.
    Q_PROPERTY(QString label MEMBER m_label NOTIFY labelChanged FINAL)
    Q_PROPERTY(bool dragging READ dragging NOTIFY draggingChanged FINAL)
public:
    explicit DragSource(QQuickItem *parent = nullptr);

    /// From when the drag begins until it was let go.
    [[nodiscard]] bool dragging() const { return m_dragging; }

Q_SIGNALS:
    void urlsChanged();
    void labelChanged();
    void draggingChanged();
    /// Pressed and let go without a drag.
    void clicked();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseUngrabEvent() override;

private:
    void drag();
    void setDragging(bool dragging);

    QList<QUrl> m_urls;
    QString m_label;
    QPointF m_pressedAt;
    bool m_dragging = false;
};

} // namespace perchly
