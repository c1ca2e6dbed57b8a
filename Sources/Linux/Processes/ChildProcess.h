#pragma once

#include <QByteArray>
#include <QStringList>

#include <chrono>
#include <memory>
#include <optional>

namespace perchly {

/// Asks a child process that another thread waits for to end. Any thread.
class StopRequest {
public:
    StopRequest();
    ~StopRequest();
    StopRequest(const StopRequest &) = delete;
    StopRequest &operator=(const StopRequest &) = delete;

    void send() const;
    /// Readable once it was sent.
    [[nodiscard]] int descriptor() const { return m_descriptor; }

private:
    int m_descriptor;
};

struct ChildLimits {
    std::optional<std::chrono::milliseconds> time = std::nullopt;
    qsizetype mostOutput = 0; ///< in bytes
};

/// What becomes of the child when the waiting is asked to stop. One that goes beyond a limit is
/// ended in any case.
enum class OnStop { EndChild, LeaveChild };

struct ChildResult {
    /// The exit status. Nothing if the child could not be started, was ended by a signal, went
    /// beyond a limit, or was not waited for.
    std::optional<int> status;
    QByteArray output;
};

/// Runs a program and waits for it, its input and errors connected to nothing, and gives its exit
/// status and standard output. A process that is ended is asked first, killed half a second later,
/// and gone afterwards. What its own children hold open is not waited for. Blocks.
[[nodiscard]] ChildResult runChild(const QString &program, const QStringList &arguments,
                                   const ChildLimits &limits, const StopRequest &stop,
                                   OnStop onStop = OnStop::EndChild);

} // namespace perchly
