#pragma once

#include "PipeWireHandles.h"

#include <QObject>
#include <QString>

#include <chrono>
#include <functional>

namespace perchly {

class PipeWireConnection;

/// A stream of stereo floats, one buffer for each channel, at whatever rate the graph has. It goes
/// with the connection. Main thread only, apart from the process callback.
class StereoStream : public QObject {
    Q_OBJECT
public:
    /// Called on the real-time thread once a cycle, from open() until close() has returned.
    struct Process {
        void (*call)(void *data, pw_stream *stream) = nullptr;
        void *data = nullptr;
    };

    /// Told when the stream begins to run, and before its set-up is taken back.
    using RunningHandler = std::function<void(bool isRunning)>;

    /// Takes the properties.
    StereoStream(PipeWireConnection &connection, pw_properties *properties, Process process,
                 RunningHandler running = {});
    ~StereoStream() override;

    /// 0, or a negative error number. The server is not waited for.
    [[nodiscard]] int open(pw_direction direction, int flags);
    /// Waits until the server has made the node or refused to. 0, or a negative error number.
    [[nodiscard]] int waitUntilMade(std::chrono::milliseconds limit);
    void close();

    /// Why it is not intact, as the server said it; empty when it said nothing.
    [[nodiscard]] QString error() const { return m_error; }

    /// False when the server has refused it or taken it away.
    [[nodiscard]] bool isIntact() const { return m_stream && m_isIntact; }
    /// The node's number in the graph; SPA_ID_INVALID without one.
    [[nodiscard]] std::uint32_t node() const;
    /// Null when it is closed.
    [[nodiscard]] pw_stream *handle() const { return m_stream.get(); }

private:
    struct Callbacks;

    PipeWireConnection &m_connection;
    Process m_process;
    RunningHandler m_running;
    StreamPointer m_stream;
    pw_stream *m_handle = nullptr; ///< for the real-time thread; set once
    spa_hook m_listener{};
    QString m_error;
    bool m_isIntact = true;
};

} // namespace perchly
