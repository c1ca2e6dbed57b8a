#include "CalendarPlaces.h"
#include "EventReading.h"
#include "GuardedLoop.h"
#include "ProcessLimits.h"
#include "ReaderOutput.h"
#include "ServiceQuestion.h"

#include <charconv>
#include <cstdio>
#include <libical/ical.h>
#include <optional>
#include <string_view>

using namespace perchly;
using namespace std::chrono_literals;

namespace {

constexpr int failure = 1;
constexpr int usage = 64;
constexpr auto serviceTime = 2s; // it may have to be started

int list() {
    ServiceQuestion service(std::nullopt, std::chrono::steady_clock::now() + serviceTime);
    const CalendarPlaces places = findCalendars();
    QByteArray lines;
    for (const CalendarPlace &place : places.calendars) {
        lines += readeroutput::calendar(place.name, place.path);
    }
    const ServiceAnswer answer = service.take();
    for (const ServiceAnswer::Calendar &found : answer.calendars) {
        lines += readeroutput::calendar(found.calendar.name, found.calendar.account);
    }
    return writeOut(lines + readeroutput::end(answer.saidWhich)) ? 0 : failure;
}

int events(const TimeWindow &window) {
    ServiceQuestion service(window, std::chrono::steady_clock::now() + serviceTime);
    return readEvents(window, service) ? 0 : failure;
}

std::optional<std::int64_t> seconds(std::string_view text) {
    std::int64_t value = 0;
    const auto end = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool sensible = value > -(std::int64_t(1) << 36) && value < (std::int64_t(1) << 36);
    return end.ec == std::errc() && end.ptr == text.data() + text.size() && sensible
               ? std::optional(value)
               : std::nullopt;
}

} // namespace

int main(int count, char **arguments) {
    limitProcess(512);
    icalerror_set_errors_are_fatal(0);
    icaltimezone_set_builtin_tzdata(0);
    const std::string_view command = count > 1 ? arguments[1] : "";
    if (count == 2 && command == "list") {
        return list();
    }
    const auto from = seconds(count == 4 ? arguments[2] : "");
    const auto to = seconds(count == 4 ? arguments[3] : "");
    if (command == "events" && from && to && *from <= *to) {
        return events({*from, *to});
    }
    std::fputs("usage: perchly-calendarreader list\n"
               "       perchly-calendarreader events FROM TO  (seconds since 1970)\n",
               stderr);
    return usage;
}
