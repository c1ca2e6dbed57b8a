#include "PipeWireAudioSystem.h"

#include "PipeWireRoute.h"

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr auto startDelay = 300ms;
constexpr auto farewellLimit = 250ms;

} // namespace

PipeWireAudioSystem::PipeWireAudioSystem(ApplicationFinder find, const QString &keeper,
                                         QObject *parent)
    : AudioSystem(parent)
    , m_find(std::move(find))
    , m_graph(m_connection)
    , m_keeper(keeper)
    , m_retired(m_graph) {
    connect(&m_graph, &AudioGraph::changed, this, &PipeWireAudioSystem::note);
}

PipeWireAudioSystem::~PipeWireAudioSystem() {
    // What the server was told last must have reached it.
    if (!m_retired.isEmpty()) {
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

std::optional<RunningApplication> PipeWireAudioSystem::application(AudioObject process) const {
    const auto known = m_applications.constFind(process);
    if (known != m_applications.cend()) {
        return *known;
    }
    const GraphClient *client = m_graph.clientOf(process);
    const QStringList hints =
        client != nullptr ? QStringList{client->applicationId, client->binary} : QStringList();
    std::optional<RunningApplication> found =
        m_find ? m_find(m_graph.systemPidOf(process), hints) : std::nullopt;
    if (!found && client != nullptr && !client->name.isEmpty()) {
        found = RunningApplication{client->name, {}};
    }
    m_applications.insert(process, found);
    return found;
}

std::unique_ptr<AudioRoute> PipeWireAudioSystem::makeRoute() {
    auto route = std::make_unique<PipeWireRoute>(m_connection, m_graph, m_keeper);
    connect(route.get(), &PipeWireRoute::retired, &m_retired, &RetiredStreams::add);
    connect(route.get(), &PipeWireRoute::stopped, this, &AudioSystem::changed,
            Qt::QueuedConnection);
    return route;
}

} // namespace perchly
