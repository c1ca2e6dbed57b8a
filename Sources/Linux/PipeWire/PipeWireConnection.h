#pragma once

#include "PipeWireContext.h"

#include <QFileSystemWatcher>
#include <QFutureWatcher>
#include <QSocketNotifier>
#include <QTimer>

#include <chrono>
#include <memory>

namespace perchly {

/// A connection to PipeWire that the event loop serves, and that comes back by itself: it watches
/// the folder of the server's socket, so that a missing server costs nothing. Main thread only;
/// neither start() nor the destructor waits for the desktop's buses, which the library asks first.
class PipeWireConnection : public QObject {
    Q_OBJECT
public:
    explicit PipeWireConnection(QObject *parent = nullptr);
    ~PipeWireConnection() override;

    /// Tries to connect as soon as the library is ready, and whenever a server may have come. Call
    /// it once.
    void start();

    /// Null until the library is ready.
    [[nodiscard]] pw_loop *loop() const { return m_loop.get(); }
    /// Null while there is no server.
    [[nodiscard]] pw_core *core() const { return m_core.get(); }

    /// Frames a second of the server's graph, as it has announced them.
    [[nodiscard]] double sampleRate() const { return m_sampleRate; }

    /// Waits until the server has done what it was told so far; for the end of the program. Not to
    /// be called from within a callback of the connection.
    void settle(std::chrono::milliseconds limit);

    /// Waits until the real-time thread has ended what it does at the moment: some microseconds.
    void passRealTimeThread();

    /// Asks the server to answer; `answered` is emitted with this number when it has.
    int ask();

Q_SIGNALS:
    void connected();
    /// The server is gone: whatever was made through the core must be destroyed now.
    void lost();
    /// From within a callback of the connection.
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
    double m_sampleRate = 48000;
    bool m_isMaking = false;
    bool m_isLost = false;
    bool m_isServing = false;
};

} // namespace perchly
