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

/// One route through PipeWire. The tap is the wish to capture a process; the device is a sink to
/// which the process' streams are sent when it starts; the engine is the stream that plays.
/// The streams are sent only when the whole way runs, so that nothing is lost on it.
class PipeWireRoute : public QObject, public AudioRoute, public AudioEngine {
    Q_OBJECT
public:
    PipeWireRoute(PipeWireConnection &connection, AudioGraph &graph, RouteKeeper &keeper);
    ~PipeWireRoute() override;

    [[nodiscard]] AudioStatus createTap(const TapDescription &description,
                                        AudioObject &tap) override;
    [[nodiscard]] AudioStatus readTapFormat(AudioObject tap, StreamFormat &format) override;
    [[nodiscard]] AudioStatus createDevice(const AggregateDescription &description,
                                           AudioObject &device) override;
    [[nodiscard]] AudioStatus createIo(AudioObject device, CaptureBlock capture,
                                       IoProcId &io) override;
    [[nodiscard]] AudioStatus startDevice(AudioObject device, IoProcId io) override;
    void stopDevice(AudioObject device, IoProcId io) override;
    void destroyIo(AudioObject, IoProcId) override {}
    void destroyDevice(AudioObject) override {}
    void destroyTap(AudioObject tap) override;
    [[nodiscard]] AudioEngine &engine() override { return *this; }

    [[nodiscard]] std::optional<PlaybackFormat>
    playbackFormat(double sampleRate, std::uint32_t channels) const override;
    [[nodiscard]] std::unique_ptr<AudioSourceNode> makeSource(const PlaybackFormat &format,
                                                              RenderBlock render) override;
    void attach(AudioSourceNode &source) override;
    void connectToMixer(AudioSourceNode &, const PlaybackFormat &) override {}
    void detach(AudioSourceNode &) override {}
    [[nodiscard]] QString start() override;
    void stop() override;
    [[nodiscard]] bool isRunning() const override;

Q_SIGNALS:
    /// The streams are still needed until the session manager has sent the process' own back, and
    /// the server has said everything about them.
    void retired(std::shared_ptr<perchly::RouteStreams> streams, const QList<std::uint32_t> &sent);
    /// isRunning() has turned false, as somebody else has moved the streams or nobody can move them
    /// any more. An end that the server refuses or takes away is not told of: isRunning() alone
    /// knows. May come from within a callback of the connection.
    void stopped();

private:
    void send();
    void interrupt();

    PipeWireConnection &m_connection;
    AudioGraph &m_graph;
    RouteKeeper &m_keeper;
    AudioObject m_process = 0;
    std::shared_ptr<RouteStreams> m_streams;
    std::unique_ptr<ProcessMove> m_move;
    QTimer m_patience;
    QTimer m_arrival;
    QTimer m_doubt;
    std::uint32_t m_playsTo = 0; ///< the output's node
    bool m_isStarted = false;    ///< the engine
};

} // namespace perchly
