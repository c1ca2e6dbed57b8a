#pragma once

#include "PipeWireHandles.h"
#include "RouteCycle.h"

#include <QObject>
#include <QString>

namespace perchly {

class PipeWireConnection;

/// The two ends of a route in the server's graph: a sink that captures, and a stream that plays
/// what it captured to the default output within the same cycle. Main thread only.
class RouteStreams : public QObject {
    Q_OBJECT
public:
    /// The identifier is the route's own, the description for the person.
    RouteStreams(PipeWireConnection &connection, const QString &uid, const QString &description);
    ~RouteStreams() override;

    /// What the real-time thread does with them. Once open, it is left alone.
    [[nodiscard]] RouteCycle &cycle() { return m_cycle; }

    /// Waits for the server for a short time.
    [[nodiscard]] AudioStatus openCapture();
    /// The same. Empty when it plays, else why not.
    [[nodiscard]] QString openPlayback();

    /// The capturing end's, by which streams are sent there.
    [[nodiscard]] QString name() const { return m_name; }
    /// Numbers of the nodes in the graph; SPA_ID_INVALID without one.
    [[nodiscard]] std::uint32_t captureNode() const;
    [[nodiscard]] std::uint32_t playbackNode() const;

    /// False when one of them has been taken away, or could not be opened.
    [[nodiscard]] bool isIntact() const { return m_isIntact; }

private:
    struct Callbacks;

    [[nodiscard]] pw_properties *properties(const QString &name, const char *direction) const;
    [[nodiscard]] StreamPointer make(pw_properties *properties, spa_hook &listener,
                                     const pw_stream_events &events);
    [[nodiscard]] int open(pw_stream *stream, pw_direction direction, int flags);
    void clear();

    PipeWireConnection &m_connection;
    QString m_uid;
    QString m_name;
    QString m_description;
    RouteCycle m_cycle;
    StreamPointer m_playback;
    spa_hook m_playbackListener{};
    StreamPointer m_capture; // goes first: it triggers the other one
    spa_hook m_captureListener{};
    bool m_isIntact = true;
};

} // namespace perchly
