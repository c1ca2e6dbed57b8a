#include "WidgetLook.h"

#include "Theme.h"
#include "Widget.h"

#include <array>

namespace perchly {

namespace {

struct Look {
    const char *symbol = "";
    QColor color = Qt::transparent;
};

/// In the order of the enum Widget.
Look lookOf(const QString &title) {
    static const std::array looks{Look{"clock", Theme::cyan()}, Look{"timer", Theme::orange()},
                                  Look{"music.note", Theme::pink()},
                                  Look{"square.pencil", Theme::yellow()},
                                  Look{"calendar", Theme::green()}};
    const auto widget = widgetFromTitle(title);
    return widget ? looks.at(std::size_t(*widget)) : Look{};
}

} // namespace

QStringList WidgetLook::titles() {
    QStringList titles;
    for (const Widget widget : allWidgets) {
        titles.append(widgetTitle(widget));
    }
    return titles;
}

QString WidgetLook::name(const QString &title) {
    return widgetLabel(title);
}

QString WidgetLook::symbol(const QString &title) {
    return QString::fromLatin1(lookOf(title).symbol);
}

QColor WidgetLook::color(const QString &title) {
    return lookOf(title).color;
}

} // namespace perchly
