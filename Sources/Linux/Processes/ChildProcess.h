#pragma once

#include <QByteArray>
#include <QStringList>

#include <atomic>
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
    /// The same, and the child is to end, whatever was agreed for a stop.
    void sendEnd();
    /// Readable once it was sent.
    [[nodiscard]] int descriptor() const { return m_descriptor; }
    [[nodiscard]] bool endsChild() const { return m_endsChild; }

private:
    int m_descriptor;
    std::atomic<bool> m_endsChild = false;
};

struct ChildLimits {
    std::optional<std::chrono::milliseconds> time = std::nullopt;
    qsizetype mostOutput = 0; ///< in bytes
    /// From asking the child to end until it is killed.
    std::chrono::milliseconds grace{500};
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
/// status and standard output. A process that is ended is asked first, killed some time later, and
/// gone afterwards; if it leads a group, all processes in that are. What its own children hold open
/// is not waited for. Blocks: for any thread but the main one.
[[nodiscard]] ChildResult runChild(const QString &program, const QStringList &arguments,
                                   const ChildLimits &limits, const StopRequest &stop,
                                   OnStop onStop = OnStop::EndChild);

} // namespace perchly
