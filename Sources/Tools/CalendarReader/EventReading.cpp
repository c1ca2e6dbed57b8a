#include "EventReading.h"

#include "CalendarPlaces.h"
#include "EventSeries.h"
#include "GuardedLoop.h"
#include "OutputBudget.h"
#include "ReaderOutput.h"

#include <QFile>
#include <QStandardPaths>

#include <chrono>
#include <deque>
#include <fcntl.h>
#include <functional>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>
#include <unordered_map>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr std::size_t largestFile = std::size_t(160) << 20;
constexpr std::size_t mostText = std::size_t(64) << 20; ///< of events that may matter
constexpr std::size_t mostTextOfCalendar = mostText / 2;
constexpr auto longestStep = 50ms;
constexpr std::size_t mostLost = 2000; // those of a calendar take its own time
constexpr auto forFiles = 2500ms;      // since the start
constexpr auto forAll = 3300ms;        // what the process lives is more

/// The events of one uid in one calendar, which belong together.
struct Group {
    std::size_t calendar = 0; ///< its number
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

QByteArray foldersOfService(const ServiceAnswer &answer) {
    const QString caches = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
                           QStringLiteral("/evolution/calendar/");
    QByteArray lines = readeroutput::serviceFolder(sourcesFolder());
    for (const ServiceAnswer::Calendar &found : answer.calendars) {
        lines += readeroutput::serviceFolder(caches + found.calendar.uid);
    }
    return lines;
}

class Reading {
public:
    explicit Reading(const TimeWindow &window)
        : m_window(window) {}

    bool run(ServiceQuestion &service) {
        const CalendarPlaces places = findCalendars();
        QByteArray lines;
        for (const QString &folder : places.folders) {
            lines += readeroutput::folder(folder);
        }
        for (const CalendarPlace &place : places.calendars) {
            lines += readCalendar(place.files, contents);
        }
        if (!writeOut(lines)) {
            return false;
        }
        expandNew(forFiles);
        if (!writeOut(readService(service.take()))) {
            return false;
        }
        expandNew(forAll);
        return writeOut(readeroutput::end(m_all && !m_budget.wasSpent()));
    }

private:
    using Contents = std::function<std::optional<std::string>(const QString &path)>;

    [[nodiscard]] QByteArray readService(const ServiceAnswer &answer) {
        QByteArray lines = foldersOfService(answer);
        if (!answer.saidWhich) {
            lines += readeroutput::muteService();
        }
        for (const ServiceAnswer::Calendar &found : answer.calendars) {
            lines += readCalendar(
                {QStringLiteral("service:") + found.calendar.uid}, [&found](const QString &) {
                    return found.text ? std::optional(found.text->toStdString()) : std::nullopt;
                });
        }
        return lines;
    }

    [[nodiscard]] QByteArray readCalendar(const QStringList &paths, const Contents &contentsOf) {
        QByteArray lines;
        std::unordered_map<std::string, std::size_t> groups;
        std::map<std::string, std::string> zones;
        const std::size_t firstGroup = m_groups.size();
        m_textOfCalendar = 0;
        for (const QString &path : paths) {
            const auto bytes = contentsOf(path);
            CalendarText text = bytes ? splitCalendar(*bytes, m_window) : CalendarText();
            if (!text.events.empty() || !text.whole) {
                lines += readeroutput::file(path, !text.whole);
                ++m_files;
            }
            m_all = m_all && text.all;
            zones.merge(text.zones);
            for (EventText &event : text.events) {
                keep(std::move(event), groups);
            }
        }
        m_zones.emplace_back(std::move(zones));
        for (std::size_t number = firstGroup; number < m_groups.size(); ++number) {
            m_groups[number].calendar = m_zones.size();
            m_groups[number].zones = &m_zones.back();
        }
        return lines;
    }

    void keep(EventText event, std::unordered_map<std::string, std::size_t> &groups) {
        const std::size_t size = memoryOf(event.text);
        if (m_textOfCalendar + size > mostTextOfCalendar || m_text + size > mostText) {
            m_all = false;
            return;
        }
        m_textOfCalendar += size;
        m_text += size;
        std::size_t number = m_groups.size();
        if (!event.uid.empty()) {
            number = groups.try_emplace(event.uid, number).first->second;
        }
        if (number == m_groups.size()) {
            m_groups.emplace_back();
        }
        m_groups[number].texts.emplace_back(std::move(event), m_files - 1);
    }

    /// Writes the occurrences of what was kept since the last time.
    void expandNew(std::chrono::milliseconds until) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            m_start + until - std::chrono::steady_clock::now());
        const bool all = runGuarded(
            m_groups.size() - m_expanded,
            {.step = longestStep, .whole = left, .mostLost = mostLost},
            [this](std::size_t number) { return expand(m_groups[m_expanded + number]); });
        m_all = m_all && all;
        m_expanded = m_groups.size();
    }

    [[nodiscard]] QByteArray expand(const Group &group) {
        if (!m_budget.begin(group.calendar)) {
            return {};
        }
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
            const QByteArray line = readeroutput::event(occurrence, files[index]);
            if (!m_budget.take(std::size_t(line.size()))) {
                break;
            }
            lines += line;
        }
        return lines;
    }

    const TimeWindow m_window;
    const std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
    std::deque<ZoneTable> m_zones; ///< of each calendar
    std::vector<Group> m_groups;
    std::size_t m_expanded = 0; ///< groups
    std::size_t m_files = 0;    ///< that were named
    std::size_t m_text = 0;
    std::size_t m_textOfCalendar = 0; ///< the last one
    OutputBudget m_budget;
    bool m_all = true; ///< was kept and came to its end
};

} // namespace

bool readEvents(const TimeWindow &window, ServiceQuestion &service) {
    return Reading(window).run(service);
}

} // namespace perchly
