#pragma once

#include "ServiceAnswer.h"
#include "TimeWindow.h"

#include <chrono>
#include <optional>
#include <sys/types.h>

namespace perchly {

/// The desktop's calendar service asked in a child process, so that whatever service and bus do, it
/// costs nobody else more than the time allowed. Make it while the process has one thread, with
/// nothing buffered for standard output.
class ServiceQuestion {
public:
    /// With a window for the events too, else for the calendars' names. Nobody is asked where the
    /// person has no such calendars.
    ServiceQuestion(const std::optional<TimeWindow> &window,
                    std::chrono::steady_clock::time_point until);
    ~ServiceQuestion();
    ServiceQuestion(const ServiceQuestion &) = delete;
    ServiceQuestion &operator=(const ServiceQuestion &) = delete;

    /// Waits until the end of the answer, at most up to the moment that was set, or 0.3 s where
    /// that is later. What was said by then counts.
    [[nodiscard]] ServiceAnswer take();

private:
    const std::chrono::steady_clock::time_point m_until;
    const bool m_asks;
    int m_answer = -1; ///< a file in memory
    int m_end = -1;    ///< of a pipe whose other end closes with the child
    pid_t m_child = -1;
};

} // namespace perchly
