#include "WidgetLook.h"

#include "Theme.h"
#include "Widget.h"

namespace perchly {

QStringList WidgetLook::titles() {
    QStringList titles;
    for (const Widget widget : allWidgets) {
        titles.append(widgetTitle(widget));
    }
    return titles;
}

QString WidgetLook::symbol(const QString &title) {
    const auto widget = widgetFromTitle(title);
    if (!widget) {
        return {};
    }
    switch (*widget) {
    case Widget::Clock:
        return QStringLiteral("clock");
    case Widget::Timer:
        return QStringLiteral("timer");
    case Widget::Music:
        return QStringLiteral("music.note");
    case Widget::Notes:
        return QStringLiteral("square.and.pencil");
    case Widget::Calendar:
        return QStringLiteral("calendar");
    }
    Q_UNREACHABLE();
}

QColor WidgetLook::color(const QString &title) {
    const auto widget = widgetFromTitle(title);
    if (!widget) {
        return Qt::transparent;
    }
    switch (*widget) {
    case Widget::Clock:
        return Theme::cyan();
    case Widget::Timer:
        return Theme::orange();
    case Widget::Music:
        return Theme::pink();
    case Widget::Notes:
        return Theme::yellow();
    case Widget::Calendar:
        return Theme::green();
    }
    Q_UNREACHABLE();
}

} // namespace perchly
