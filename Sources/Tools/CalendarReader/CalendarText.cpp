#include "CalendarText.h"

#include <algorithm>
#include <chrono>
#include <optional>
#include <strings.h>

namespace perchly {

namespace {

constexpr std::int64_t margin = 2 * secondsPerDay; // for zones, and more
constexpr std::size_t mostMemory = std::size_t(96) << 20;

using Day = std::chrono::sys_days;

Day dayAt(std::int64_t seconds) {
    return std::chrono::floor<std::chrono::days>(
        std::chrono::sys_seconds(std::chrono::seconds(seconds)));
}

bool startsWith(std::string_view line, std::string_view word) {
    return line.size() >= word.size() && strncasecmp(line.data(), word.data(), word.size()) == 0;
}

/// Whether the line holds the property: its name, then parameters or the value.
bool isProperty(std::string_view line, std::string_view name) {
    return startsWith(line, name) && line.size() > name.size() &&
           (line[name.size()] == ':' || line[name.size()] == ';');
}

std::string_view valueOf(std::string_view line) {
    bool quoted = false;
    for (std::size_t at = 0; at < line.size(); ++at) {
        quoted = quoted != (line[at] == '"');
        if (line[at] == ':' && !quoted) {
            return line.substr(at + 1);
        }
    }
    return {};
}

/// For a value that begins as "20260131".
std::optional<Day> dayOf(std::string_view line) {
    const std::string_view value = valueOf(line);
    int day = 0;
    for (std::size_t at = 0; at < 8; ++at) {
        if (at >= value.size() || value[at] < '0' || value[at] > '9') {
            return std::nullopt;
        }
        day = day * 10 + (value[at] - '0');
    }
    using namespace std::chrono;
    const year_month_day date(year(day / 10'000), month(unsigned(day / 100 % 100)),
                              std::chrono::day(unsigned(day % 100)));
    return date.ok() ? std::optional(Day(date)) : std::nullopt;
}

/// At least as many as a duration ("P1DT2H") takes; nothing for one that is unusual.
std::optional<std::chrono::days> daysOf(std::string_view line) {
    constexpr int most = 100'000;
    int days = 1;
    int number = 0;
    for (const char letter : valueOf(line)) {
        if (letter >= '0' && letter <= '9') {
            number = number * 10 + (letter - '0');
        } else {
            days += letter == 'W' ? number * 7 : letter == 'D' ? number : number / 24 + 1;
            number = 0;
        }
        if (number > most || days > most) {
            return std::nullopt;
        }
    }
    return std::chrono::days(days);
}

class Splitter {
public:
    Splitter(std::string_view file, const TimeWindow &window)
        : m_file(file)
        , m_firstDay(dayAt(window.from - margin))
        , m_lastDay(dayAt(window.to + margin)) {}

    CalendarText split() {
        m_at = m_file.starts_with("\xEF\xBB\xBF") ? 3 : 0;
        while (m_at < m_file.size()) {
            takeLine();
        }
        m_result.whole = m_ended && m_depth == 0;
        return std::move(m_result);
    }

private:
    enum class Kind { Other, Event, Zone };

    void takeLine() {
        const std::size_t start = m_at;
        m_at = std::min(m_file.find('\n', start), m_file.size() - 1) + 1;
        std::string_view line = m_file.substr(start, m_at - start);
        while (!line.empty() && (line.back() == '\n' || line.back() == '\r')) {
            line.remove_suffix(1);
        }
        if (line.empty()) {
            return;
        }
        if (startsWith(line, "BEGIN:")) {
            begin(line.substr(6), start);
        } else if (startsWith(line, "END:")) {
            end(line.substr(4));
        } else if (m_depth == 2 && m_kind == Kind::Event) {
            noteProperty(line);
        } else if (m_depth == 2 && m_kind == Kind::Zone && isProperty(line, "TZID")) {
            m_name = whole(valueOf(line));
        }
    }

    void begin(std::string_view name, std::size_t start) {
        if (++m_depth == 2) {
            m_kind = startsWith(name, "VEVENT")      ? Kind::Event
                     : startsWith(name, "VTIMEZONE") ? Kind::Zone
                                                     : Kind::Other;
            m_start = start;
            m_name.clear();
            m_first = m_last = std::nullopt;
            m_length = std::nullopt;
            m_recurs = m_isException = m_isLong = false;
        }
        m_ended = false;
    }

    void end(std::string_view name) {
        if (m_depth == 2 && m_kind == Kind::Event && mayMatter()) {
            m_memory += memoryOf(component());
            if (m_memory > mostMemory) {
                m_result.all = false;
            } else {
                m_result.events.push_back({std::string(component()), m_name, m_isException});
            }
        } else if (m_depth == 2 && m_kind == Kind::Zone) {
            m_result.zones.emplace(m_name, std::string(component()));
        }
        m_ended = m_depth == 1 && startsWith(name, "VCALENDAR");
        m_depth = std::max(m_depth - 1, 0);
    }

    void noteProperty(std::string_view line) {
        if (isProperty(line, "DTSTART")) {
            m_first = dayOf(line);
        } else if (isProperty(line, "DTEND")) {
            m_last = dayOf(line);
        } else if (isProperty(line, "UID")) {
            m_name = whole(valueOf(line));
        } else if (isProperty(line, "RRULE") || isProperty(line, "RDATE")) {
            m_recurs = true;
        } else if (isProperty(line, "RECURRENCE-ID")) {
            m_isException = true;
        } else if (isProperty(line, "DURATION")) {
            m_length = daysOf(line);
            m_isLong = !m_length;
        }
    }

    [[nodiscard]] bool mayMatter() const {
        if (m_recurs || m_isException || !m_first) {
            return true;
        }
        const Day last = m_last.value_or(*m_first + m_length.value_or(std::chrono::days(0)));
        return *m_first <= m_lastDay && (m_isLong || std::max(*m_first, last) >= m_firstDay);
    }

    /// The value with what the next lines continue it with.
    [[nodiscard]] std::string whole(std::string_view value) const {
        std::string text(value);
        for (std::size_t at = m_at;
             at < m_file.size() && (m_file[at] == ' ' || m_file[at] == '\t');) {
            const std::size_t next = std::min(m_file.find('\n', at), m_file.size());
            text += m_file.substr(at + 1, next - at - 1);
            while (text.ends_with('\r')) {
                text.pop_back();
            }
            at = next + 1;
        }
        return text;
    }

    [[nodiscard]] std::string_view component() const {
        return m_file.substr(m_start, m_at - m_start);
    }

    const std::string_view m_file;
    const Day m_firstDay;
    const Day m_lastDay;
    CalendarText m_result;
    std::size_t m_memory = 0; ///< of the events
    std::size_t m_at = 0;
    int m_depth = 0;      ///< components that are open
    bool m_ended = false; ///< the last calendar
    // The component at the second level that is open.
    Kind m_kind = Kind::Other;
    std::size_t m_start = 0;
    std::string m_name;
    std::optional<Day> m_first;
    std::optional<Day> m_last;
    std::optional<std::chrono::days> m_length;
    bool m_recurs = false;
    bool m_isException = false;
    bool m_isLong = false; ///< perhaps
};

} // namespace

CalendarText splitCalendar(std::string_view file, const TimeWindow &window) {
    return Splitter(file, window).split();
}

} // namespace perchly
