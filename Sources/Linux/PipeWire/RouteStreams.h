#pragma once

#include "LoopEvent.h"
#include "RouteCycle.h"
#include "StereoStream.h"

#include <QString>

#include <functional>
#include <memory>

namespace perchly {

class PipeWireConnection;

/// The two ends of a route in the server's graph: a sink that captures, and a stream that plays
/// what it captured to the default output within the same cycle. Main thread only.
class RouteStreams {
public:
    /// Starts the names of all routes' nodes.
    static constexpr QLatin1StringView namePrefix{"perchly."};

    /// The identifier is unique, the description for the user. Calls running() once when both ends
    /// run, from within a callback of the connection. Needs a connection.
    RouteStreams(PipeWireConnection &connection, const QString &uid, const QString &description,
                 std::shared_ptr<AudioRingBuffer> ring, std::function<void()> running);
    ~RouteStreams();

    /// The code of the real-time thread. Must not be changed once it is open.
    [[nodiscard]] RouteCycle &cycle() { return m_cycle; }

    // 0, or a negative error number. They do not wait for the server; isIntact() turns false if it
    // refuses.
    [[nodiscard]] int openCapture();
    [[nodiscard]] int openPlayback();
    /// Whether the server has made both ends.
    [[nodiscard]] bool isMade() const;

    /// Takes both ends out of the graph; nothing is captured or played afterwards.
    void leaveGraph();

    /// Lets the sink stop while no stream is sent there. Before, it always runs.
    void letSinkIdle();

    /// The sink's name, to which streams are sent.
    [[nodiscard]] QString name() const { return m_name; }
    [[nodiscard]] std::uint32_t captureNode() const { return m_capture->node(); }
    [[nodiscard]] std::uint32_t playbackNode() const {
        return m_playback ? m_playback->node() : SPA_ID_INVALID;
    }

    /// False when an end could not be opened or was taken away.
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
