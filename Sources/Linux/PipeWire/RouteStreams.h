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
    /// What the names of all routes' nodes begin with.
    static constexpr QLatin1StringView namePrefix{"perchly."};

    /// The identifier is the route's own, the description for the person. Tells once when the two
    /// run, from within a callback of the connection. Needs a connection.
    RouteStreams(PipeWireConnection &connection, const QString &uid, const QString &description,
                 std::shared_ptr<AudioRingBuffer> ring, std::function<void()> running);
    ~RouteStreams();

    /// What the real-time thread does. Once it is open, it is left alone.
    [[nodiscard]] RouteCycle &cycle() { return m_cycle; }

    // The server is asked for the ends and not waited for: isIntact() is what it thinks of them.
    // 0, or a negative error number.
    [[nodiscard]] int openCapture();
    [[nodiscard]] int openPlayback();
    /// Whether the server has made both ends.
    [[nodiscard]] bool isMade() const;

    /// Takes both ends out of the graph; nothing is captured or played any more.
    void leaveGraph();

    /// Lets the sink stop whenever nothing is sent there. Until then it runs all the time.
    void rest();

    /// The sink's, by which streams are sent there.
    [[nodiscard]] QString name() const { return m_name; }
    [[nodiscard]] std::uint32_t captureNode() const { return m_capture->node(); }
    [[nodiscard]] std::uint32_t playbackNode() const {
        return m_playback ? m_playback->node() : SPA_ID_INVALID;
    }

    /// False when an end has been taken away, or could not be opened.
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
    std::unique_ptr<StereoStream> m_capture; // goes before the other one, which it triggers
};

} // namespace perchly
