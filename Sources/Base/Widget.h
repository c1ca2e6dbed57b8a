#pragma once

#include <QString>
#include <QStringView>

#include <array>
#include <optional>

namespace perchly {

/// A kind of card that can be pinned to the shelf. Choosers list them in this order.
enum class Widget { Clock, Timer, Music, Notes, Calendar };

inline constexpr std::array allWidgets{Widget::Clock, Widget::Timer, Widget::Music, Widget::Notes,
                                       Widget::Calendar};

/// The title, which is the stored form.
[[nodiscard]] QString widgetTitle(Widget widget);

/// The title in the user's language.
[[nodiscard]] QString widgetLabel(const QString &title);

/// The widget with exactly that title, if any.
[[nodiscard]] std::optional<Widget> widgetFromTitle(QStringView title);

} // namespace perchly
