#pragma once

#include "AudioRoute.h"
#include "ProcessMove.h"
#include "RouteStreams.h"

#include <QTimer>

#include <memory>

namespace perchly {

class AudioGraph;
class PipeWireConnection;
class RouteKeeper;

/// One route through PipeWire: a sink for the process's streams, and a stream that plays the sink's
/// sound. Streams are moved only when both run, so that no sound is lost.
class PipeWireRoute : public QObject, public AudioRoute {
    Q_OBJECT
public:
    PipeWireRoute(PipeWireConnection &connection, AudioGraph &graph, RouteKeeper &keeper,
                  AudioObject process);
    ~PipeWireRoute() override;

    /// Call it once. Returns an empty string if the route has started, else an error for the user.
    /// Does not wait for the server.
    [[nodiscard]] QString start(std::shared_ptr<AudioRingBuffer> ring);
    [[nodiscard]] bool isRunning() const override;

Q_SIGNALS:
    /// Keep the streams until the session manager has sent the process's streams back.
    void retired(std::shared_ptr<perchly::RouteStreams> streams, const QList<std::uint32_t> &sent);
    /// isRunning() has turned false because another program moved the streams, or because they can
    /// no longer be moved. Not emitted when the server removes an end. May come from within a
    /// callback of the connection.
    void stopped();

private:
    [[nodiscard]] QString findProcess() const;
    void send();
    void interrupt();

    PipeWireConnection &m_connection;
    AudioGraph &m_graph;
    RouteKeeper &m_keeper;
    AudioObject m_process;
    std::shared_ptr<RouteStreams> m_streams;
    std::unique_ptr<ProcessMove> m_move;
    QTimer m_startLimit;
    QTimer m_arrivalLimit;
    QTimer m_recheck;
    std::uint32_t m_playsTo = 0; ///< node of the output
    bool m_isStarted = false;
};

} // namespace perchly
