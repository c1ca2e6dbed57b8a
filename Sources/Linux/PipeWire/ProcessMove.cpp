#include "ProcessMove.h"

#include "AudioGraph.h"
#include "RouteKeeper.h"
#include "RouteStreams.h"

#include <utility>

namespace perchly {

namespace {

/// The target that the user chose, if any: the name of a route is left over from an earlier route.
std::optional<StreamTarget> chosenByUser(const std::optional<StreamTarget> &target) {
    return target && QLatin1StringView(target->value).startsWith(RouteStreams::namePrefix)
               ? std::nullopt
               : target;
}

} // namespace

ProcessMove::ProcessMove(AudioGraph &graph, RouteKeeper &keeper, AudioObject process,
                         const QString &target)
    : m_graph(graph)
    , m_keeper(keeper)
    , m_process(process)
    , m_target{QByteArrayLiteral("Spa:String"), target.toUtf8()} {}

ProcessMove::~ProcessMove() {
    for (const std::uint32_t node : streams()) {
        forget(node);
    }
}

void ProcessMove::begin(std::uint32_t sink) {
    m_isUnderWay = true;
    // A stream moved while it is being connected plays in both places until it ends; so a new
    // stream is moved only once it plays.
    connect(&m_graph, &AudioGraph::streamChanged, this, [this](std::uint32_t node) {
        const GraphStream *stream = m_graph.stream(node);
        if (stream != nullptr && stream->isRunning && m_graph.processOf(node) == m_process) {
            move(node);
        }
    });
    connect(&m_graph, &AudioGraph::streamRemoved, this, &ProcessMove::forget);
    connect(&m_graph.metadata(), &SessionMetadata::targetChanged, this, &ProcessMove::watch);
    // While a client binds the table, PipeWire drops table events for all others, but not links.
    connect(&m_graph, &AudioGraph::linked, this,
            [this, sink](std::uint32_t from, std::uint32_t to) {
                if (to == sink && m_before.contains(from)) {
                    m_arrived.insert(from);
                } else if (m_arrived.contains(from) && !m_graph.serialOfOutput(to).isEmpty() &&
                           !m_graph.wiring().connects(from, sink)) {
                    endFor(from);
                }
            });
    for (const GraphStream *stream : m_graph.streamsOf(m_process)) {
        move(stream->node);
    }
}

void ProcessMove::move(std::uint32_t node) {
    if (!m_isTakenOver && !m_before.contains(node) && m_graph.metadata().isBound()) {
        m_graph.metadata().setTarget(node, m_target);
        note(node);
    }
}

/// Records the stream's target while the table still has it.
void ProcessMove::note(std::uint32_t node) {
    const auto before = originalTarget(node);
    m_before.insert(node, before);
    m_keeper.keep(node, before);
    const auto output =
        before ? m_graph.outputOfSerial(QString::fromUtf8(before->value)) : std::nullopt;
    if (output) {
        m_graph.metadata().remember(node, *output);
    }
}

void ProcessMove::forget(std::uint32_t node) {
    m_before.remove(node);
    m_arrived.remove(node);
    m_keeper.forget(node);
}

void ProcessMove::watch(std::uint32_t node) {
    // Older values may still arrive until ours does.
    if (!m_before.contains(node)) {
        return;
    }
    if (m_graph.metadata().target(node) == m_target) {
        m_arrived.insert(node);
    } else if (m_arrived.contains(node)) {
        endFor(node);
    } else {
        note(node);
    }
}

void ProcessMove::endFor(std::uint32_t node) {
    m_isTakenOver = true;
    forget(node);
    Q_EMIT takenOver();
}

std::optional<StreamTarget> ProcessMove::originalTarget(std::uint32_t node) const {
    if (const auto target = chosenByUser(m_graph.metadata().target(node))) {
        return target;
    }
    // Setting a target makes the session manager forget the output that it remembers for the
    // program, so that output becomes the target to restore.
    const auto remembered = m_graph.metadata().rememberedNode(node);
    const QString serial = remembered ? m_graph.serialOfOutput(*remembered) : QString();
    if (serial.isEmpty()) {
        return std::nullopt;
    }
    return StreamTarget{QByteArrayLiteral("Spa:Id"), serial.toLatin1()};
}

void ProcessMove::undo() {
    if (!std::exchange(m_isUnderWay, false)) {
        return;
    }
    disconnect(&m_graph, nullptr, this, nullptr);
    disconnect(&m_graph.metadata(), nullptr, this, nullptr);
    for (auto moved = m_before.cbegin(); moved != m_before.cend(); ++moved) {
        m_keeper.forget(moved.key());
        if (m_graph.metadata().isBound()) {
            m_graph.metadata().setTarget(moved.key(), moved.value());
        }
    }
}

} // namespace perchly
