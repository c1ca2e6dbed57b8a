#include "ToolTipNesting.h"

#include <QQuickWindow>
#include <QVariant>

namespace perchly {

QPoint ToolTipNesting::nest(QWindow *toolTip, QQuickItem *item) {
    QWindow *window = item->window();
    if (window == nullptr || !window->property("nestsToolTips").toBool()) {
        return {};
    }
    toolTip->setParent(window);
    return window->position();
}

} // namespace perchly
