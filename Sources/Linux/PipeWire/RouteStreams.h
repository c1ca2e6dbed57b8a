#pragma once

#include "LoopEvent.h"
#include "RouteCycle.h"
#include "StereoStream.h"

#include <QString>

#include <functional>
#include <memory>

namespace perchly {

class PipeWireConnection;

/// The two ends of a route in the server's graph: a sink that captures, and a stream that plays the
/// captured sound to the default output within the same cycle. Main thread only.
class RouteStreams {
public:
    /// The prefix of all routes' node names.
    static constexpr QLatin1StringView namePrefix{"perchly."};

    /// `uid` is unique; `description` is for the user. Calls running() once when both ends run, in
    /// a callback of the connection. Needs a connection.
    RouteStreams(PipeWireConnection &connection, const QString &uid, const QString &description,
                 std::shared_ptr<AudioRingBuffer> ring, std::function<void()> running);
    ~RouteStreams();

    /// The real-time thread's part. Do not change it after RouteCycle::open().
    [[nodiscard]] RouteCycle &cycle() { return m_cycle; }

    // Returns 0 or a negative error number. These do not wait for the server; isIntact() turns
    // false if it refuses.
    [[nodiscard]] int openCapture();
    [[nodiscard]] int openPlayback();
    /// Whether the server has created both ends.
    [[nodiscard]] bool isMade() const;

    /// Removes both ends from the graph; nothing is captured or played afterwards.
    void leaveGraph();

    /// Lets the sink stop while no stream is sent to it; until then it always runs.
    void letSinkIdle();

    /// The name of the sink, for moving streams to it.
    [[nodiscard]] QString name() const { return m_name; }
    [[nodiscard]] std::uint32_t captureNode() const { return m_capture->node(); }
    [[nodiscard]] std::uint32_t playbackNode() const {
        return m_playback ? m_playback->node() : SPA_ID_INVALID;
    }

    /// False if an end could not be opened or was removed.
    [[nodiscard]] bool isIntact() const;

private:
    [[nodiscard]] pw_properties *properties(const QString &name) const;
    void setGroups(pw_properties *properties) const;
    [[nodiscard]] std::unique_ptr<StereoStream> make(pw_properties *properties,
                                                     StereoStream::Process process);

    PipeWireConnection &m_connection;
    QString m_uid;
    QString m_name;
    QString m_description;
    RouteCycle m_cycle;
    LoopEvent m_running;
    std::unique_ptr<StereoStream> m_playback;
    std::unique_ptr<StereoStream> m_capture; // destroyed before the playback, which it triggers
};

} // namespace perchly
