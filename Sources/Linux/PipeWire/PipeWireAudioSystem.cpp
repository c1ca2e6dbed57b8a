#include "PipeWireAudioSystem.h"

#include "PipeWireRoute.h"

#include <utility>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr auto startDelay = 300ms;
constexpr auto settleTimeout = 250ms;

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
    // The last requests must reach the server.
    if (!m_retired.isEmpty()) {
        m_connection.settle(settleTimeout);
    }
}

void PipeWireAudioSystem::start() {
    QTimer::singleShot(startDelay, &m_connection, &PipeWireConnection::start);
}

void PipeWireAudioSystem::note() {
    m_hasBeenComplete = m_hasBeenComplete || m_graph.isComplete();
    findApplications();
    Q_EMIT changed();
}

void PipeWireAudioSystem::findApplications() {
    if (!m_find) {
        return;
    }
    const QHash<AudioObject, Lookup> before = std::exchange(m_lookups, {});
    const QList<AudioProcess> processes = m_graph.processes();
    for (const AudioProcess &process : processes) {
        const auto last = before.constFind(process.object);
        const bool isNew = last == before.cend();
        if (isNew && !process.isRunningOutput.value_or(false)) {
            continue;
        }
        const GraphClient *client = m_graph.clientOf(process.object);
        const Question question{.pid = m_graph.systemPidOf(process.object),
                                .hints = client != nullptr
                                             ? QStringList{client->applicationId, client->binary}
                                             : QStringList()};
        m_lookups.insert(process.object, {question, isNew ? std::nullopt : last->found});
        if (isNew || last->question != question) {
            find(process.object, question);
        }
    }
}

void PipeWireAudioSystem::find(AudioObject process, const Question &question) {
    const auto keep = [this, process, question](const auto &found) {
        const auto lookup = m_lookups.find(process);
        if (lookup != m_lookups.end() && lookup->question == question) {
            lookup->found = found;
            Q_EMIT changed();
        }
    };
    m_workers.run([this, question] { return m_find(question.pid, question.hints); }, keep);
}

std::optional<QList<AudioProcess>> PipeWireAudioSystem::processes() const {
    return m_graph.isComplete() ? std::optional(m_graph.processes()) : std::nullopt;
}

std::optional<RunningApplication> PipeWireAudioSystem::application(AudioObject process) const {
    if (const auto known = m_lookups.value(process).found) {
        return known;
    }
    const GraphClient *client = m_graph.clientOf(process);
    return client != nullptr && !client->name.isEmpty()
               ? std::optional(RunningApplication{client->name, {}})
               : std::nullopt;
}

std::unique_ptr<AudioRoute> PipeWireAudioSystem::route(AudioObject process,
                                                       std::shared_ptr<AudioRingBuffer> ring,
                                                       QString &error) {
    auto route = std::make_unique<PipeWireRoute>(m_connection, m_graph, m_keeper, process);
    connect(route.get(), &PipeWireRoute::retired, &m_retired, &RetiredStreams::add);
    connect(route.get(), &PipeWireRoute::stopped, this, &AudioSystem::changed,
            Qt::QueuedConnection);
    error = route->start(std::move(ring));
    return error.isEmpty() ? std::move(route) : nullptr;
}

} // namespace perchly
