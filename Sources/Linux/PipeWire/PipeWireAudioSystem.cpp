#include "PipeWireAudioSystem.h"

#include "PipeWireRoute.h"

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr auto startDelay = 300ms;
constexpr auto retiredLimit = 1s;
constexpr auto farewellLimit = 250ms;

} // namespace

PipeWireAudioSystem::PipeWireAudioSystem(ApplicationFinder find, QObject *parent)
    : AudioSystem(parent)
    , m_find(std::move(find))
    , m_graph(m_connection) {
    m_dropping.setSingleShot(true);
    m_dropping.setInterval(0);
    m_lastDropping.setSingleShot(true);
    m_lastDropping.setInterval(retiredLimit);
    connect(&m_graph, &AudioGraph::changed, this, &PipeWireAudioSystem::note);
    connect(&m_graph, &AudioGraph::wiringChanged, this, [this] {
        if (!m_retired.empty()) {
            m_dropping.start();
        }
    });
    connect(&m_dropping, &QTimer::timeout, this, &PipeWireAudioSystem::dropRetired);
    connect(&m_lastDropping, &QTimer::timeout, this, [this] { m_retired.clear(); });
}

PipeWireAudioSystem::~PipeWireAudioSystem() {
    // What the server was told last must have reached it.
    if (!m_retired.empty()) {
        m_connection.settle(farewellLimit);
    }
}

void PipeWireAudioSystem::start() {
    QTimer::singleShot(startDelay, &m_connection, &PipeWireConnection::start);
}

void PipeWireAudioSystem::note() {
    m_applications.clear();
    m_hasBeenComplete = m_hasBeenComplete || m_graph.isComplete();
    Q_EMIT changed();
}

std::optional<QList<AudioProcess>> PipeWireAudioSystem::processes() const {
    return m_graph.isComplete() ? std::optional(m_graph.processes()) : std::nullopt;
}

std::optional<RunningApplication> PipeWireAudioSystem::application(std::int32_t pid) const {
    const auto known = m_applications.constFind(pid);
    if (known != m_applications.cend()) {
        return *known;
    }
    const GraphClient *client = m_graph.clientOf(pid);
    const QStringList hints =
        client != nullptr ? QStringList{client->applicationId, client->binary} : QStringList();
    std::optional<RunningApplication> found = m_find ? m_find(pid, hints) : std::nullopt;
    if (!found && client != nullptr && !client->name.isEmpty()) {
        found = RunningApplication{client->name, {}};
    }
    m_applications.insert(pid, found);
    return found;
}

std::unique_ptr<AudioRoute> PipeWireAudioSystem::makeRoute() {
    auto route = std::make_unique<PipeWireRoute>(m_connection, m_graph);
    connect(route.get(), &PipeWireRoute::retired, this, &PipeWireAudioSystem::retire);
    connect(route.get(), &PipeWireRoute::stopped, this, &AudioSystem::changed,
            Qt::QueuedConnection);
    return route;
}

void PipeWireAudioSystem::retire(const std::shared_ptr<RouteStreams> &streams) {
    m_retired.push_back(streams);
    m_dropping.start();
    m_lastDropping.start();
}

void PipeWireAudioSystem::dropRetired() {
    std::erase_if(m_retired, [this](const auto &streams) {
        return !streams->isIntact() || !m_graph.wiring().isFed(streams->captureNode());
    });
    if (m_retired.empty()) {
        m_lastDropping.stop();
    }
}

} // namespace perchly
