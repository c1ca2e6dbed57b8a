#include "PipeWireRoute.h"

#include "AudioGraph.h"
#include "PipeWireConnection.h"

#include <QPointer>
#include <QUuid>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

namespace perchly {

using namespace std::chrono_literals;

namespace {

/// After this time, the process is sent to the route even if its ends do not run yet.
constexpr auto startTimeout = 500ms;

/// After this time, the sink may stop running without the process's streams.
constexpr auto arrivalTimeout = 1s;

/// How long a route may play to a new default output before the change is announced.
constexpr auto newsTimeout = 500ms;

bool isAny(const QList<const GraphStream *> &streams, bool GraphStream::*property) {
    return std::any_of(streams.cbegin(), streams.cend(),
                       [property](const GraphStream *stream) { return stream->*property; });
}

} // namespace

PipeWireRoute::PipeWireRoute(PipeWireConnection &connection, AudioGraph &graph, RouteKeeper &keeper,
                             AudioObject process)
    : m_connection(connection)
    , m_graph(graph)
    , m_keeper(keeper)
    , m_process(process) {
    m_startLimit.setSingleShot(true);
    m_startLimit.setInterval(startTimeout);
    connect(&m_startLimit, &QTimer::timeout, this, [this] {
        if (m_streams->isMade()) {
            send();
        } else {
            m_startLimit.start(); // the server is slow, but no sound is lost
        }
    });
    m_arrivalLimit.setSingleShot(true);
    m_arrivalLimit.setInterval(arrivalTimeout);
    connect(&m_arrivalLimit, &QTimer::timeout, this, [this] { m_streams->letSinkIdle(); });
    m_recheck.setSingleShot(true);
    m_recheck.setInterval(newsTimeout);
    connect(&m_recheck, &QTimer::timeout, this, [this] { m_graph.recheckDefault(m_playsTo); });
    connect(&graph, &AudioGraph::moverLost, this, &PipeWireRoute::interrupt);
    connect(&graph, &AudioGraph::linked, this, [this](std::uint32_t from, std::uint32_t to) {
        if (m_streams && from == m_streams->playbackNode()) {
            m_playsTo = to;
            m_recheck.start();
        }
    });
}

PipeWireRoute::~PipeWireRoute() {
    m_isStarted = false;
    if (m_move) {
        m_move->undo();
    }
    if (m_streams) {
        Q_EMIT retired(std::exchange(m_streams, nullptr),
                       m_move ? m_move->streams() : QList<std::uint32_t>());
    }
}

QString PipeWireRoute::start(std::shared_ptr<AudioRingBuffer> ring) {
    if (const QString reason = findProcess(); !reason.isEmpty()) {
        return tr("Audio access failed. %1").arg(reason);
    }
    // PipeWire converts all formats into the sink's stereo floats, except those that only the
    // device can decode.
    if (isAny(m_graph.streamsOf(m_process), &GraphStream::isEncoded)) {
        return tr("This app’s audio format is not supported by the mixer yet.");
    }
    m_streams = std::make_shared<RouteStreams>(
        m_connection, QUuid::createUuid().toString(QUuid::WithoutBraces),
        QStringLiteral("Perchly private app audio"), std::move(ring), [self = QPointer(this)] {
            if (self && self->m_startLimit.isActive()) {
                self->send();
            }
        });
    if (const int status = m_streams->openCapture(); status != 0) {
        return tr("Cannot create private audio route (%1).").arg(status);
    }
    if (const int status = m_graph.defaultOutput() == 0 ? -ENODEV : m_streams->openPlayback();
        status != 0) {
        return tr("The audio output cannot be opened: %1.")
            .arg(QString::fromLocal8Bit(std::strerror(-status)));
    }
    if (!m_streams->isIntact()) {
        return tr("Cannot start app audio (%1).").arg(-EIO);
    }
    m_isStarted = true;
    m_streams->cycle().open();
    m_move = std::make_unique<ProcessMove>(m_graph, m_keeper, m_process, m_streams->name());
    connect(m_move.get(), &ProcessMove::takenOver, this, &PipeWireRoute::interrupt);
    m_startLimit.start();
    return {};
}

/// Why the process cannot be routed; empty if it can.
QString PipeWireRoute::findProcess() const {
    if (!m_graph.isComplete()) {
        return tr("PipeWire does not answer.");
    }
    if (!m_graph.hasProcess(m_process)) {
        return tr("PipeWire no longer lists this app.");
    }
    return isAny(m_graph.streamsOf(m_process), &GraphStream::isFixed)
               ? tr("This app does not let PipeWire move its sound.")
               : QString();
}

void PipeWireRoute::send() {
    m_startLimit.stop();
    m_move->begin(m_streams->captureNode());
    m_arrivalLimit.start();
}

void PipeWireRoute::interrupt() {
    if (std::exchange(m_isStarted, false)) {
        Q_EMIT stopped();
    }
}

bool PipeWireRoute::isRunning() const {
    return m_isStarted && m_streams->isIntact();
}

} // namespace perchly
