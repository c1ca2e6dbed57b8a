#pragma once

#include "PipeWireHandles.h"

#include <QObject>

#include <functional>

namespace perchly {

class PipeWireConnection;

/// A stream of stereo floats at the graph's rate, with one buffer per channel. It is closed with
/// the connection. Main thread only, except the process callback.
class StereoStream : public QObject {
    Q_OBJECT
public:
    /// Called once per cycle on the real-time thread, from open() until close() has returned.
    struct Process {
        void (*call)(void *data, pw_stream *stream) = nullptr;
        void *data = nullptr;
    };

    /// Takes ownership of `properties`.
    StereoStream(PipeWireConnection &connection, pw_properties *properties, Process process);
    ~StereoStream() override;

    /// Returns 0 or a negative error number. Does not wait for the server.
    [[nodiscard]] int open(pw_direction direction, int flags);
    void close();

    /// False if the server has refused or removed it.
    [[nodiscard]] bool isIntact() const { return m_stream && m_isIntact; }
    /// The stream's node; SPA_ID_INVALID until the server has created it.
    [[nodiscard]] std::uint32_t node() const;
    /// Called when the stream starts or stops being processed. The state does not change again
    /// before the function has returned.
    void onStreamingChanged(std::function<void(bool isStreaming)> call) {
        m_streamingChanged = std::move(call);
    }
    /// Null while closed.
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
