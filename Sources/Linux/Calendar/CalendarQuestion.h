#pragma once

#include "CalendarStore.h"

#include <QList>
#include <QString>

#include <functional>
#include <optional>

namespace perchly {

/// A calendar that was found, as the person is told of it.
struct FoundCalendar {
    QString name;
    QString place; ///< an absolute path, or the account that it belongs to
};

/// Nothing when the question was closed without an answer.
using CalendarAnswer = std::function<void(std::optional<bool> allowed)>;

/// Asks the person, in a dialog that lists the calendars, whether they may be read; of one who has
/// said yes, whether that still holds. Answers once, later; destroying the task closes the dialog,
/// without an answer. Needs a QApplication and a window system. Main thread only.
[[nodiscard]] Task askForCalendars(const QList<FoundCalendar> &calendars, CalendarAccess current,
                                   CalendarAnswer answer);

} // namespace perchly
