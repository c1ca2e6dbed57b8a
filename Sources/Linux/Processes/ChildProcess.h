#pragma once

#include <QByteArray>
#include <QObject>
#include <QProcess>
#include <QStringList>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace perchly {

struct ChildLimits {
    std::optional<std::chrono::milliseconds> time = std::nullopt;
    qsizetype maxOutput = 0;              ///< in bytes; 0 discards the output
    std::chrono::milliseconds grace{500}; ///< from SIGTERM to SIGKILL
};

/// What happens to a child whose task is destroyed. A child that exceeds a limit is always ended.
enum class OnStop { EndChild, LeaveChild };

struct ChildResult {
    /// The exit status; nullopt if the child did not start or was ended by a signal.
    std::optional<int> status;
    QByteArray output;
};

/// One child process in its own session, without stdin and stderr. After its exit it does not wait
/// for other processes that keep its output open. Main thread only.
class ChildProcess : public QObject {
    Q_OBJECT
public:
    using Completion = std::function<void(const ChildResult &result)>;

    /// The program is an absolute path.
    ChildProcess(const QString &program, const QStringList &arguments, const ChildLimits &limits,
                 OnStop onStop, Completion completion, QObject *parent);
    /// Ends the child and waits for its end, unless OnStop::LeaveChild is set.
    ~ChildProcess() override;

    [[nodiscard]] bool isWaiting() const { return m_state == State::Waiting; }
    [[nodiscard]] bool isRunning() const {
        return m_state == State::Running || m_state == State::Ending;
    }

    void start();

    /// Sends SIGTERM to the session, and SIGKILL after the grace time. The completion is called
    /// when the child has exited.
    void end();

    /// The same for any session. Destroying the context cancels the SIGKILL.
    static void endSession(qint64 leader, std::chrono::milliseconds grace, const QObject *context);

    /// Drops the completion and, with OnStop::EndChild, ends the child.
    void abandon();

Q_SIGNALS:
    /// The child has exited; this object deletes itself. The completion is called next.
    void exited();

private:
    enum class State { Waiting, Running, Ending, Exited };

    void readOutput();
    void finish();

    const ChildLimits m_limits;
    const OnStop m_onStop;
    Completion m_completion;
    QByteArray m_output;
    State m_state = State::Waiting;
    QTimer m_limit;
    std::unique_ptr<QProcess> m_process = std::make_unique<QProcess>();
};

} // namespace perchly
