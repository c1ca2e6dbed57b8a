#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <libical/ical.h>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace perchly {

/// In seconds since 1970, UTC; excludes the end.
struct TimeWindow {
    std::int64_t from = 0;
    std::int64_t to = 0;
};

constexpr std::int64_t secondsPerDay = 86400;

struct IcalDeleter {
    void operator()(icalcomponent *component) const { icalcomponent_free(component); }
    void operator()(icaltimezone *zone) const { icaltimezone_free(zone, 1); }
    void operator()(icalparser *parser) const { icalparser_free(parser); }
    void operator()(char *text) const { icalmemory_free_buffer(text); }
};
template <class Type>
using IcalPtr = std::unique_ptr<Type, IcalDeleter>;

struct Calendar {
    TimeWindow window;
    /// Events that may take place in the window: all recurring ones, and all exceptions.
    std::vector<IcalPtr<icalcomponent>> events;
    std::map<std::string, IcalPtr<icaltimezone>> zones; ///< defined by the calendar, by TZID
    bool isWhole = true; ///< no file was truncated, damaged or unreadable

    /// Adds a file, or every *.ics file in a folder.
    void addPlace(const QString &path);
    void addText(const QByteArray &text);
};

} // namespace perchly
