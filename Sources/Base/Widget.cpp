#include "Widget.h"

#include <algorithm>

namespace perchly {

QString widgetTitle(Widget widget) {
    switch (widget) {
    case Widget::Clock:
        return QStringLiteral("Clock");
    case Widget::Timer:
        return QStringLiteral("Focus timer");
    case Widget::Music:
        return QStringLiteral("Music");
    case Widget::Notes:
        return QStringLiteral("Quick note");
    case Widget::Calendar:
        return QStringLiteral("Calendar");
    }
    Q_UNREACHABLE();
}

std::optional<Widget> widgetFromTitle(QStringView title) {
    const auto found = std::ranges::find_if(
        allWidgets, [title](Widget widget) { return widgetTitle(widget) == title; });
    return found == allWidgets.end() ? std::nullopt : std::optional(*found);
}

} // namespace perchly
