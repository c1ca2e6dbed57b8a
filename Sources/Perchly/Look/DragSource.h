#pragma once

#include <QList>
#include <QPointF>
#include <QQuickItem>
#include <QString>
#include <QUrl>

namespace perchly {

/// An area from which files and links can be dragged into any program. Only copies: the originals
/// are neither moved nor removed. Place it behind a row's buttons; it takes the left button, even
/// in a list that can be flicked.
class DragSource : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    /// The URLs to drag; no drag starts if there are none.
    Q_PROPERTY(QList<QUrl> urls MEMBER m_urls NOTIFY urlsChanged FINAL)
    /// The text shown at the pointer.
    Q_PROPERTY(QString label MEMBER m_label NOTIFY labelChanged FINAL)
    Q_PROPERTY(bool dragging READ dragging NOTIFY draggingChanged FINAL)
public:
    explicit DragSource(QQuickItem *parent = nullptr);

    /// True from the start of the drag until the release.
    [[nodiscard]] bool dragging() const { return m_dragging; }

Q_SIGNALS:
    void urlsChanged();
    void labelChanged();
    void draggingChanged();
    /// Pressed and released without a drag.
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
