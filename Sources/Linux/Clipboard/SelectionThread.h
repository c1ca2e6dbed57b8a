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
    /// Connects to the server named by DISPLAY, in the thread. Where there is none, readings end
    /// with nothing.
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
    /// Given no loop where there is no server.
    using Command = std::function<void(SelectionLoop *loop)>;

    void post(Command command);
    [[nodiscard]] std::vector<Command> takeCommands();
    void run();
    void wait() const;
    void handOver();

    SelectionLoop::Listener m_listener;
    std::mutex m_mutex;
    std::vector<Command> m_commands; ///< guarded by the mutex
    int m_wakeUp;                    ///< readable when there are commands
    std::atomic<bool> m_isEnding = false;
    std::atomic<int> m_descriptor = -1;    ///< of the connection, for ending a wait for the server
    std::unique_ptr<SelectionLoop> m_loop; ///< the thread's own
    std::promise<void> m_ended;
    std::thread m_thread; ///< last: it uses the others
};

} // namespace perchly
