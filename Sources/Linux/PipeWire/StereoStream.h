#pragma once

#include "PipeWireHandles.h"

#include <QObject>

#include <functional>

namespace perchly {

class PipeWireConnection;

/// A stream of stereo floats, one buffer for each channel, at the rate of the graph. It is closed
/// with the connection. Main thread only, apart from the process callback.
class StereoStream : public QObject {
    Q_OBJECT
public:
    /// Called on the real-time thread once a cycle, from open() until close() has returned.
    struct Process {
        void (*call)(void *data, pw_stream *stream) = nullptr;
        void *data = nullptr;
    };

    /// Takes the properties.
    StereoStream(PipeWireConnection &connection, pw_properties *properties, Process process);
    ~StereoStream() override;

    /// 0, or a negative error number. Does not wait for the server.
    [[nodiscard]] int open(pw_direction direction, int flags);
    void close();

    /// False when the server has refused it or taken it away.
    [[nodiscard]] bool isIntact() const { return m_stream && m_isIntact; }
    /// The node's number in the graph; SPA_ID_INVALID until the server has made it.
    [[nodiscard]] std::uint32_t node() const;
    /// Called when the stream starts or stops being processed. The state does not change again
    /// before the function has returned.
    void onStreamingChanged(std::function<void(bool isStreaming)> call) {
        m_streamingChanged = std::move(call);
    }
    /// Null when it is closed.
    [[nodiscard]] pw_stream *handle() const { return m_stream.get(); }

private:
    struct Callbacks;

    void setStreaming(bool isStreaming);

    Process m_process;
    StreamPointer m_stream;
    pw_stream *m_handle = nullptr; ///< for the real-time thread; set once
    spa_hook m_listener{};
    bool m_isIntact = true;
    bool m_isStreaming = false;
    std::function<void(bool)> m_streamingChanged;
};

} // namespace perchly
