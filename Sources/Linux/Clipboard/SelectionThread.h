#pragma once

#include "SelectionLoop.h"

#include <atomic>
#include <future>
#include <mutex>
#include <thread>
#include <vector>

namespace perchly {

/// The thread in which a SelectionLoop turns, and what may be asked of it. Nothing here waits for
/// the thread but the destructor. Main thread only.
class SelectionThread {
public:
    /// Connects to the server named by DISPLAY, in the thread, and again when the connection is
    /// lost. While there is none, readings end with nothing and what was written last waits.
    explicit SelectionThread(SelectionLoop::Listener listener);
    /// Hands our copy over to the clipboard manager; waits for two seconds at most.
    ~SelectionThread();
    SelectionThread(const SelectionThread &) = delete;
    SelectionThread &operator=(const SelectionThread &) = delete;

    void read(quint64 reading, const PasteboardRequest &request, quint64 copies);
    void cancel(quint64 reading);
    void write(const QString &text, quint64 write);
    void writeImage(const QByteArray &encoded, quint64 write);
    void writeItems(const QList<QUrl> &urls, quint64 write);

private:
    /// Given no loop while there is no connection.
    using Command = std::function<void(SelectionLoop *loop)>;

    void post(Command command);
    [[nodiscard]] std::vector<Command> takeCommands();
    void offer(SelectionContents contents, quint64 write);
    void run();
    void connect();
    void followLoss();
    void wait() const;
    void handOver();

    SelectionLoop::Listener m_listener;
    std::mutex m_mutex;
    std::vector<Command> m_commands; ///< guarded by the mutex
    int m_wakeUp;                    ///< readable when there are commands
    std::atomic<bool> m_isEnding = false;
    std::atomic<int> m_descriptor = -1; ///< of the connection, for ending a wait for the server
    // The thread's own
    std::unique_ptr<SelectionLoop> m_loop;
    SelectionMemory m_memory; ///< while there is no loop
    int m_failures = 0;       ///< of connecting, in a row
    std::optional<SelectionLoop::TimePoint> m_nextAttempt;
    std::promise<void> m_ended;
    std::thread m_thread; ///< last: it uses the others
};

} // namespace perchly
