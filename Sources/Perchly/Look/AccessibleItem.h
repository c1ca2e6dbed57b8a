#pragma once

#include <QAccessible>
#include <QPointer>

namespace perchly {

/// Corrects what Qt tells assistive programs about items and their windows: Qt 6.4 reports no item
/// as disabled, gives items in a scaled one their unscaled size, and gives places in points where
/// the desktop expects pixels.
class AccessibleItem : public QAccessibleInterface {
public:
    /// Call it before the first item is created.
    static void install();

    [[nodiscard]] bool isValid() const override { return m_item->isValid(); }
    [[nodiscard]] QObject *object() const override { return m_object; }
    [[nodiscard]] QWindow *window() const override { return m_item->window(); }
    [[nodiscard]] QAccessibleInterface *childAt(int x, int y) const override;
    [[nodiscard]] QAccessibleInterface *focusChild() const override { return m_item->focusChild(); }
    [[nodiscard]] QAccessibleInterface *parent() const override { return m_item->parent(); }
    [[nodiscard]] QAccessibleInterface *child(int index) const override {
        return m_item->child(index);
    }
    [[nodiscard]] int childCount() const override { return m_item->childCount(); }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface *child) const override {
        return m_item->indexOfChild(child);
    }
    [[nodiscard]] QString text(QAccessible::Text kind) const override { return m_item->text(kind); }
    void setText(QAccessible::Text kind, const QString &text) override {
        m_item->setText(kind, text);
    }
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::Role role() const override { return m_item->role(); }
    [[nodiscard]] QAccessible::State state() const override;
    void *interface_cast(QAccessible::InterfaceType type) override {
        return m_item->interface_cast(type);
    }

private:
    static QAccessibleInterface *make(const QString &className, QObject *object);

    explicit AccessibleItem(QAccessibleInterface *item);

    QAccessibleInterface *m_item; ///< Qt's, which deletes both, in any order
    QPointer<QObject> m_object;
};

} // namespace perchly
