#pragma once

#include <QSocketNotifier>

#include <chrono>
#include <functional>
#include <memory>

namespace perchly {

/// A process that an earlier instance of the program started in its own session and left running.
/// Main thread only.
class LeftProcess {
public:
    using Completion = std::function<void()>;

    /// Null if no process with this pid and processStartTime() is running. The completion is called
    /// once, from the event loop, when the process has ended.
    [[nodiscard]] static std::unique_ptr<LeftProcess> find(int pid, quint64 startTime,
                                                           Completion ended);
    ~LeftProcess();
    LeftProcess(const LeftProcess &) = delete;
    LeftProcess &operator=(const LeftProcess &) = delete;

    /// Like ChildProcess::end(). Does nothing if the process has ended.
    void end(std::chrono::milliseconds grace);

private:
    LeftProcess(int pid, quint64 startTime, int descriptor, Completion ended);

    const int m_pid;
    const quint64 m_startTime;
    const int m_descriptor;
    QSocketNotifier m_notifier;
};

} // namespace perchly
