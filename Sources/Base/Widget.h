#pragma once

#include <QString>
#include <QStringView>

#include <array>
#include <optional>

namespace perchly {

/// A kind of card that can be pinned to the shelf, in the order in which choosers list them.
enum class Widget { Clock, Timer, Music, Notes, Calendar };

inline constexpr std::array allWidgets{Widget::Clock, Widget::Timer, Widget::Music, Widget::Notes,
                                       Widget::Calendar};

/// The title shown to people, which is also the form in which a widget is stored.
[[nodiscard]] QString widgetTitle(Widget widget);

/// The widget with exactly that title, if there is one.
[[nodiscard]] std::optional<Widget> widgetFromTitle(QStringView title);

} // namespace perchly
