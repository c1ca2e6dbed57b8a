#include "Widget.h"

#include <QCoreApplication>

#include <algorithm>

namespace perchly {

QString widgetTitle(Widget widget) {
    switch (widget) {
    case Widget::Clock:
        return QStringLiteral(QT_TRANSLATE_NOOP("Widget", "Clock"));
    case Widget::Timer:
        return QStringLiteral(QT_TRANSLATE_NOOP("Widget", "Focus timer"));
    case Widget::Music:
        return QStringLiteral(QT_TRANSLATE_NOOP("Widget", "Music"));
    case Widget::Notes:
        return QStringLiteral(QT_TRANSLATE_NOOP("Widget", "Quick note"));
    case Widget::Calendar:
        return QStringLiteral(QT_TRANSLATE_NOOP("Widget", "Calendar"));
    }
    Q_UNREACHABLE();
}

QString widgetLabel(const QString &title) {
    return QCoreApplication::translate("Widget", title.toUtf8().constData());
}

std::optional<Widget> widgetFromTitle(QStringView title) {
    const auto found = std::ranges::find_if(
        allWidgets, [title](Widget widget) { return widgetTitle(widget) == title; });
    return found == allWidgets.end() ? std::nullopt : std::optional(*found);
}

} // namespace perchly
