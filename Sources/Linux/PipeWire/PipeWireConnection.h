#pragma once

#include "PipeWireContext.h"

#include <QFileSystemWatcher>
#include <QFutureWatcher>
#include <QSocketNotifier>
#include <QTimer>

#include <chrono>
#include <memory>

namespace perchly {

/// A connection to PipeWire in the event loop. It reconnects by watching the folder of the server's
/// socket, so a missing server costs nothing. Main thread only; neither start() nor the destructor
/// waits for the buses that libpipewire asks for real-time priority.
class PipeWireConnection : public QObject {
    Q_OBJECT
public:
    explicit PipeWireConnection(QObject *parent = nullptr);
    ~PipeWireConnection() override;

    /// Connects as soon as libpipewire is ready, and whenever a server appears. Call it once.
    void start();

    /// Null until libpipewire is ready.
    [[nodiscard]] pw_loop *loop() const { return m_loop.get(); }
    /// Null while there is no server.
    [[nodiscard]] pw_core *core() const { return m_core.get(); }

    /// Waits until the server has processed all requests; for the end of the program. Must not be
    /// called in a callback of the connection.
    void settle(std::chrono::milliseconds limit);

    /// Waits some microseconds until the real-time thread has finished its current work.
    void passRealTimeThread();

    /// Requests an answer from the server; answered() is then emitted with the returned number.
    int ask();

Q_SIGNALS:
    void connected();
    /// The server is gone: destroy everything made through the core now.
    void lost();
    /// Emitted from within a callback of the connection.
    void answered(int number);

private:
    struct Callbacks;

    void makeContext();
    void takeContext();
    void tryToConnect();
    void tryLater();
    void lookAgain();
    void serve();
    void iterate(std::chrono::milliseconds limit);
    void dropLostServer();

    QFutureWatcher<PipeWireContext> m_making;
    LoopPointer m_loop;
    ContextPointer m_context;
    CorePointer m_core;
    spa_hook m_listener{};
    std::unique_ptr<QSocketNotifier> m_readable;
    QFileSystemWatcher m_folder;
    QTimer m_retry;
    int m_attempts = 0;
    int m_answered = 0;
    bool m_isMaking = false;
    bool m_isLost = false;
    bool m_isServing = false;
};

} // namespace perchly
