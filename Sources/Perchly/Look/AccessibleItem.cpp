#include "AccessibleItem.h"

#include <QQuickItem>
#include <QQuickWindow>
#include <QScreen>

namespace perchly {

void AccessibleItem::install() {
    QAccessible::installFactory(&AccessibleItem::make);
}

QAccessibleInterface *AccessibleItem::make(const QString &className, QObject *object) {
    static bool isAsking = false; // Qt's factory, which follows this one
    const bool isOurs =
        className == QStringLiteral("QQuickItem") || className == QStringLiteral("QQuickWindow");
    if (!isOurs || isAsking) {
        return nullptr;
    }
    isAsking = true;
    QAccessibleInterface *item = QAccessible::queryAccessibleInterface(object);
    isAsking = false;
    return item ? new AccessibleItem(item) : nullptr;
}

AccessibleItem::AccessibleItem(QAccessibleInterface *item)
    : m_item(item)
    , m_object(item->object()) {
    if (auto *quickItem = qobject_cast<QQuickItem *>(object())) {
        QObject::connect(quickItem, &QQuickItem::enabledChanged, quickItem, [quickItem] {
            QAccessible::State changed;
            changed.disabled = true;
            QAccessibleStateChangeEvent event(quickItem, changed);
            QAccessible::updateAccessibility(&event);
        });
    }
}

QAccessibleInterface *AccessibleItem::childAt(int x, int y) const {
    for (int index = childCount() - 1; index >= 0; --index) {
        QAccessibleInterface *found = child(index);
        if (found && !found->state().invisible && found->rect().contains(x, y)) {
            return found;
        }
    }
    return nullptr;
}

QRect AccessibleItem::rect() const {
    QRect place = m_item->rect();
    const auto *item = qobject_cast<QQuickItem *>(object());
    if (item != nullptr && !item->size().isEmpty()) {
        place.setSize(item->mapRectToScene(QRectF(QPointF(), item->size())).size().toSize());
    }
    const QWindow *window = item ? item->window() : qobject_cast<QWindow *>(object());
    if (window == nullptr || window->screen() == nullptr) {
        return place;
    }
    const QPoint origin = window->screen()->geometry().topLeft(); // the same in pixels
    const double ratio = window->devicePixelRatio();
    return {origin + (place.topLeft() - origin) * ratio, place.size() * ratio};
}

QAccessible::State AccessibleItem::state() const {
    QAccessible::State state = m_item->state();
    if (const auto *item = qobject_cast<QQuickItem *>(object())) {
        const QVariant usable = item->property("usable");
        state.disabled = !item->isEnabled() || (usable.isValid() && !usable.toBool());
        // Qt also counts the scopes around the item with the keyboard.
        state.focused = state.focused && item->scopedFocusItem() == nullptr;
    }
    return state;
}

} // namespace perchly
