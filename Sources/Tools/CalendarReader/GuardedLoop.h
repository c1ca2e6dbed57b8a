#pragma once

#include <QByteArray>

#include <chrono>
#include <cstddef>
#include <functional>

namespace perchly {

struct LoopLimits {
    std::chrono::milliseconds step;  ///< of the processor's time, for one step
    std::chrono::milliseconds whole; ///< of the wall clock's
    std::size_t mostLost = 0;        ///< steps that may fail before the rest is given up
};

/// Calls the step for each number below `count`, in a child process, and writes what it returns to
/// standard output, whole. A step that takes too long or crashes is lost; a new child goes on after
/// it. True if the end was reached. Call it while the process has one thread, with nothing buffered
/// for standard output.
[[nodiscard]] bool runGuarded(std::size_t count, const LoopLimits &limits,
                              const std::function<QByteArray(std::size_t number)> &step);

/// Writes to standard output at once; false if nobody takes it.
bool writeOut(const QByteArray &bytes);

} // namespace perchly
