#pragma once

#include "CalendarSource.h"

#include <QByteArray>

#include <optional>
#include <vector>

namespace perchly {

/// What the desktop's calendar service was heard to say before its time was over.
struct ServiceAnswer {
    struct Calendar {
        ServiceCalendar calendar;
        std::optional<QByteArray>
            text; ///< as in a file; nothing when it did not come, or not whole
    };

    bool saidWhich = false; ///< calendars there are
    std::vector<Calendar> calendars;

    /// Takes apart what the functions below made, in that order, up to where it ends.
    [[nodiscard]] static ServiceAnswer parse(const QByteArray &bytes);

    [[nodiscard]] static QByteArray which(const QList<ServiceCalendar> &calendars);
    /// Of the calendar with that number among them.
    [[nodiscard]] static QByteArray textOf(qsizetype number, const QByteArray &text);
};

} // namespace perchly
