#include "PipeWireRoute.h"

#include "AudioGraph.h"
#include "PipeWireConnection.h"

#include <QPointer>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

namespace perchly {

using namespace std::chrono_literals;

namespace {

/// How long the route's ends may take until they run before the process is sent there all the same.
constexpr auto patience = 500ms;

/// How long the sink runs all the same until the process' streams have come.
constexpr auto arrival = 1s;

/// How long the news of another default output may take after the route has gone there.
constexpr auto newsLimit = 500ms;

/// A route has one of each.
constexpr AudioObject tapObject = 1;
constexpr AudioObject deviceObject = 2;
constexpr IoProcId ioProc = 1;

struct PipeWireSource : AudioSourceNode {
    RenderBlock render;
};

} // namespace

PipeWireRoute::PipeWireRoute(PipeWireConnection &connection, AudioGraph &graph, RouteKeeper &keeper)
    : m_connection(connection)
    , m_graph(graph)
    , m_keeper(keeper) {
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
    connect(&m_patience, &QTimer::timeout, this, [this] {
        if (m_streams->isMade()) {
            m_move->begin();
            m_arrival.start();
        } else {
            m_patience.start(); // the server is slow, and nothing is lost
        }
    });
    m_arrival.setSingleShot(true);
    m_arrival.setInterval(arrival);
    connect(&m_arrival, &QTimer::timeout, this, [this] { m_streams->rest(); });
    m_doubt.setSingleShot(true);
    m_doubt.setInterval(newsLimit);
    connect(&m_doubt, &QTimer::timeout, this, [this] { m_graph.doubtDefault(m_playsTo); });
    connect(&graph, &AudioGraph::moverLost, this, &PipeWireRoute::interrupt);
    connect(&graph, &AudioGraph::linked, this, [this](std::uint32_t from, std::uint32_t to) {
        if (m_streams && from == m_streams->playbackNode()) {
            m_playsTo = to;
            m_doubt.start();
        }
    });
}

PipeWireRoute::~PipeWireRoute() {
    stopDevice(deviceObject, ioProc);
    destroyTap(tapObject);
}

AudioStatus PipeWireRoute::createTap(const TapDescription &description, AudioObject &tap) {
    if (!m_graph.isComplete()) {
        return -ENOTCONN;
    }
    const AudioObject process = description.processes.value(0);
    if (!m_graph.hasProcess(process)) {
        return -ESRCH;
    }
    const auto streams = m_graph.streamsOf(process);
    if (std::any_of(streams.cbegin(), streams.cend(),
                    [](const GraphStream *stream) { return stream->isFixed; })) {
        return -EPERM;
    }
    m_process = process;
    tap = tapObject;
    return noAudioError;
}

AudioStatus PipeWireRoute::readTapFormat(AudioObject, StreamFormat &format) {
    // Whatever a program plays, PipeWire turns it into the stereo floats of the sink, but for what
    // only the device can decode.
    const auto streams = m_graph.streamsOf(m_process);
    const bool isEncoded = std::any_of(streams.cbegin(), streams.cend(),
                                       [](const auto *stream) { return stream->isEncoded; });
    format = {.sampleRate = m_connection.sampleRate(),
              .encoding = isEncoded ? AudioEncoding::Other : AudioEncoding::LinearPcm,
              .samples = SampleKind::Float,
              .bitsPerChannel = 32,
              .channelsPerFrame = 2};
    return noAudioError;
}

AudioStatus PipeWireRoute::createDevice(const AggregateDescription &description,
                                        AudioObject &device) {
    if (m_connection.core() == nullptr) {
        return -ENOTCONN;
    }
    m_streams = std::make_shared<RouteStreams>(m_connection, description.uid, description.name,
                                               [self = QPointer(this)] {
                                                   if (self) {
                                                       self->send();
                                                   }
                                               });
    const AudioStatus status = m_streams->openCapture();
    if (status == noAudioError) {
        device = deviceObject;
    }
    return status;
}

AudioStatus PipeWireRoute::createIo(AudioObject, CaptureBlock capture, IoProcId &io) {
    m_streams->cycle().setCapture(std::move(capture));
    io = ioProc;
    return noAudioError;
}

AudioStatus PipeWireRoute::startDevice(AudioObject, IoProcId) {
    if (!isRunning()) {
        return -EIO;
    }
    m_streams->cycle().open();
    m_move = std::make_unique<ProcessMove>(m_graph, m_keeper, m_process, m_streams->name());
    connect(m_move.get(), &ProcessMove::takenOver, this, &PipeWireRoute::interrupt);
    m_patience.start();
    return noAudioError;
}

void PipeWireRoute::send() {
    if (m_patience.isActive()) {
        m_patience.stop();
        m_move->begin();
        m_arrival.start();
    }
}

void PipeWireRoute::interrupt() {
    if (std::exchange(m_isStarted, false)) {
        Q_EMIT stopped();
    }
}

void PipeWireRoute::stopDevice(AudioObject, IoProcId) {
    m_patience.stop();
    m_arrival.stop();
    m_doubt.stop();
    if (m_move) {
        m_move->undo();
    }
}

void PipeWireRoute::destroyTap(AudioObject) {
    m_process = 0;
    const auto move = std::exchange(m_move, nullptr);
    if (m_streams) {
        Q_EMIT retired(std::exchange(m_streams, nullptr),
                       move ? move->streams() : QList<std::uint32_t>());
    }
}

std::optional<PlaybackFormat> PipeWireRoute::playbackFormat(double sampleRate,
                                                            std::uint32_t channels) const {
    return sampleRate >= 1 && channels == 2 ? std::optional(PlaybackFormat{sampleRate, channels})
                                            : std::nullopt;
}

std::unique_ptr<AudioSourceNode> PipeWireRoute::makeSource(const PlaybackFormat &,
                                                           RenderBlock render) {
    auto source = std::make_unique<PipeWireSource>();
    source->render = std::move(render);
    return source;
}

void PipeWireRoute::attach(AudioSourceNode &source) {
    m_streams->cycle().setRender(static_cast<PipeWireSource &>(source).render);
}

QString PipeWireRoute::start() {
    const AudioStatus status = m_graph.defaultOutput() == 0 ? -ENODEV : m_streams->openPlayback();
    m_isStarted = status == noAudioError;
    return m_isStarted ? QString()
                       : QStringLiteral("The audio output cannot be opened: %1.")
                             .arg(QString::fromLocal8Bit(std::strerror(-status)));
}

void PipeWireRoute::stop() {
    m_isStarted = false;
}

bool PipeWireRoute::isRunning() const {
    return m_isStarted && m_streams && m_streams->isIntact();
}

} // namespace perchly
