#pragma once

#include <QAccessible>
#include <QPointer>
#include <QQuickItem>
#include <QTimer>

namespace perchly {

/// Keeps a list's rows in visual order, in which assistive programs then read them; a list view
/// keeps them in order of creation. Also keeps them in the accessibility tree: Qt 6.8 hides rows
/// that were laid out below the edge, even after they scroll into view. Does nothing while no
/// assistive program runs. Main thread only.
class RowOrder : public QObject, public QAccessible::ActivationObserver {
    Q_OBJECT
    QML_ELEMENT
    /// The parent item of the rows.
    Q_PROPERTY(QQuickItem *rows READ rows WRITE setRows NOTIFY rowsChanged FINAL)
public:
    explicit RowOrder(QObject *parent = nullptr);
    ~RowOrder() override;

    [[nodiscard]] QQuickItem *rows() const { return m_rows; }
    void setRows(QQuickItem *rows);

    void accessibilityActiveChanged(bool active) override;

Q_SIGNALS:
    void rowsChanged();

private:
    void watch();
    void sort();

    QPointer<QQuickItem> m_rows;
    QTimer m_soon;
};

} // namespace perchly
