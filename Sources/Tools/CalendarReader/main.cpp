#include "CalendarPlaces.h"
#include "GuardedLoop.h"
#include "ProcessLimits.h"
#include "ReaderOutput.h"

#include <QFile>

#include <charconv>
#include <cstdio>
#include <deque>
#include <fcntl.h>
#include <optional>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <unordered_map>

using namespace perchly;
using namespace std::chrono_literals;

namespace {

constexpr int failure = 1;
constexpr int usage = 64;
constexpr std::size_t largestFile = std::size_t(160) << 20;
constexpr std::size_t mostText = std::size_t(64) << 20; ///< of events that may matter
constexpr LoopLimits limits{.step = 50ms, .whole = 3s, .mostLost = 30};

/// The events of one uid in one calendar, which belong together.
struct Group {
    ZoneTable *zones = nullptr;
    std::vector<std::pair<EventText, std::size_t>> texts; ///< with the number of the file
};

std::optional<std::string> contents(const QString &path) {
    // Without blocking: a pipe of that name would wait for a writer.
    const int file = open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    struct stat status = {};
    if (file < 0 || fstat(file, &status) != 0 || !S_ISREG(status.st_mode) ||
        std::size_t(status.st_size) > largestFile) {
        close(file);
        return std::nullopt;
    }
    std::string bytes(std::size_t(status.st_size), '\0');
    std::size_t size = 0;
    ssize_t got = 0;
    while (size < bytes.size() &&
           (got = read(file, bytes.data() + size, bytes.size() - size)) > 0) {
        size += std::size_t(got);
    }
    close(file);
    bytes.resize(size);
    return got < 0 ? std::nullopt : std::optional(std::move(bytes));
}

class Reading {
public:
    explicit Reading(const TimeWindow &window)
        : m_window(window) {}

    int run() {
        const CalendarPlaces places = findCalendars();
        QByteArray lines;
        for (const QString &folder : places.folders) {
            lines += readeroutput::folder(folder);
        }
        for (const CalendarPlace &place : places.calendars) {
            read(place, lines);
        }
        if (!writeOut(lines)) {
            return failure;
        }
        const bool all = runGuarded(m_groups.size(), limits,
                                    [this](std::size_t number) { return expand(number); });
        return writeOut(readeroutput::end(all && !m_full)) ? 0 : failure;
    }

private:
    void read(const CalendarPlace &place, QByteArray &lines) {
        std::unordered_map<std::string, std::size_t> groups;
        std::map<std::string, std::string> zones;
        const std::size_t firstGroup = m_groups.size();
        for (const QString &path : place.files) {
            const auto bytes = contents(path);
            CalendarText text = bytes ? splitCalendar(*bytes, m_window) : CalendarText();
            if (!text.events.empty() || !text.whole) {
                lines += readeroutput::file(path, !text.whole);
                ++m_files;
            }
            zones.merge(text.zones);
            for (EventText &event : text.events) {
                keep(std::move(event), groups);
            }
        }
        m_zones.emplace_back(std::move(zones));
        for (std::size_t number = firstGroup; number < m_groups.size(); ++number) {
            m_groups[number].zones = &m_zones.back();
        }
    }

    void keep(EventText event, std::unordered_map<std::string, std::size_t> &groups) {
        m_text += event.text.size();
        m_full = m_full || m_text > mostText;
        if (m_full) {
            return;
        }
        std::size_t number = m_groups.size();
        if (!event.uid.empty()) {
            number = groups.try_emplace(event.uid, number).first->second;
        }
        if (number == m_groups.size()) {
            m_groups.emplace_back();
        }
        m_groups[number].texts.emplace_back(std::move(event), m_files - 1);
    }

    [[nodiscard]] QByteArray expand(std::size_t number) const {
        const Group &group = m_groups[number];
        std::vector<Event> events;
        std::vector<std::size_t> files;
        for (const auto &[text, file] : group.texts) {
            if (auto event = parseEvent(text, *group.zones)) {
                events.push_back(std::move(*event));
                files.push_back(file);
            }
        }
        QByteArray lines;
        for (const Occurrence &occurrence : occurrencesOf(events, m_window)) {
            const auto index = std::size_t(occurrence.event - events.data());
            lines += readeroutput::event(occurrence, files[index]);
        }
        return lines;
    }

    const TimeWindow m_window;
    std::deque<ZoneTable> m_zones; ///< of each calendar
    std::vector<Group> m_groups;
    std::size_t m_files = 0; ///< that were named
    std::size_t m_text = 0;
    bool m_full = false;
};

int list() {
    const CalendarPlaces places = findCalendars();
    QByteArray lines;
    for (const CalendarPlace &place : places.calendars) {
        lines += readeroutput::calendar(place.name, place.path);
    }
    return writeOut(lines + readeroutput::end(true)) ? 0 : failure;
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
        return Reading({*from, *to}).run();
    }
    std::fputs("usage: perchly-calendarreader list\n"
               "       perchly-calendarreader events FROM TO  (seconds since 1970)\n",
               stderr);
    return usage;
}
