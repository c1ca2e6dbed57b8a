#include "ShelfItem.h"

#include "ShownText.h"

#include <QDir>

namespace perchly {

ShelfItem ShelfItem::forWidget(Widget widget) {
    const QString title = perchly::widgetTitle(widget);
    return {.id = QLatin1StringView("widget:") + title, .name = title, .widgetName = title};
}

ShelfItem ShelfItem::forShortcut(const QString &name) {
    return {.id = QLatin1StringView("shortcut:") + name, .name = name, .shortcutName = name};
}

ShelfItem ShelfItem::forApplication(const QString &path, const QString &name) {
    return {.id = QDir::cleanPath(path), .name = name, .path = path};
}

QString ShelfItem::shownName() const {
    return widgetTitle().isEmpty() ? inOneLine(name) : widgetLabel(inOneLine(name));
}

bool ShelfItem::removable() const {
    return widgetTitle().isEmpty() && (path || shortcutName);
}

QString ShelfItem::kind() const {
    if (!widgetTitle().isEmpty()) {
        return QStringLiteral("widget");
    }
    if (shortcutName) {
        return QStringLiteral("shortcut");
    }
    return path ? QStringLiteral("application") : QString();
}

QString ShelfItem::widgetTitle() const {
    return widgetName && widgetFromTitle(*widgetName) ? *widgetName : QString();
}

} // namespace perchly
