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

/// One route through PipeWire: a sink for the process's streams, and a stream that
/// plays the sink's sound. The streams are moved only when both run, so that nothing is lost.
class PipeWireRoute : public QObject, public AudioRoute {
    Q_OBJECT
public:
    PipeWireRoute(PipeWireConnection &connection, AudioGraph &graph, RouteKeeper &keeper,
                  AudioObject process);
    ~PipeWireRoute() override;

    /// Call it once. Empty when the route has started, else why not, for the user. The server is
    /// not waited for.
    [[nodiscard]] QString start(std::shared_ptr<AudioRingBuffer> ring);
    [[nodiscard]] bool isRunning() const override;

Q_SIGNALS:
    /// The streams must be kept until the session manager has sent the process' streams back.
    void retired(std::shared_ptr<perchly::RouteStreams> streams, const QList<std::uint32_t> &sent);
    /// isRunning() has turned false because the streams were moved by somebody else or cannot be
    /// moved any more. Not emitted when the server takes an end away. May come from within a
    /// callback of the connection.
    void stopped();

private:
    [[nodiscard]] int findProcess() const;
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
    std::uint32_t m_playsTo = 0; ///< the output's node
    bool m_isStarted = false;
};

} // namespace perchly
