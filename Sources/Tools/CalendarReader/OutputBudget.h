#pragma once

#include <chrono>
#include <cstddef>

namespace perchly {

/// What may be said of events: so much of one event, of one calendar and of all together, and a
/// calendar may take only part of the time. Thus one that is hostile costs the others nothing. It
/// is counted in memory shared with child processes, so that what one used is used for those after
/// it.
class OutputBudget {
public:
    OutputBudget();
    ~OutputBudget();
    OutputBudget(const OutputBudget &) = delete;
    OutputBudget &operator=(const OutputBudget &) = delete;

    /// The next occurrences are of another event of the calendar with that number. All of a
    /// calendar come in one go. False when its time is over.
    [[nodiscard]] bool begin(std::size_t calendar);

    /// Whether one more occurrence of so many bytes may be written, which then counts as written.
    [[nodiscard]] bool take(std::size_t bytes);

    /// Whether either function ever said no.
    [[nodiscard]] bool wasSpent() const;

private:
    struct Used {
        std::size_t bytes = 0;
        std::size_t occurrences = 0;
    };
    struct Shared {
        std::size_t calendar = std::size_t(-1); ///< the one that is being read
        std::chrono::steady_clock::time_point since = {};
        Used ofEvent;
        Used ofCalendar;
        Used ofAll;
        bool spent = false;
    };

    static bool fits(const Used &used, const Used &most, std::size_t bytes);

    Shared *m_shared = nullptr; ///< null when there is no memory, and nothing may be written
};

} // namespace perchly
