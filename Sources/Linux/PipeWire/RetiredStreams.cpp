#include "RetiredStreams.h"

#include "AudioGraph.h"

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr auto look = 100ms;
constexpr auto rest = 400ms;
constexpr auto limit = 2s;

} // namespace

RetiredStreams::RetiredStreams(const AudioGraph &graph, QObject *parent)
    : QObject(parent)
    , m_graph(graph) {
    m_timer.setInterval(look);
    connect(&m_timer, &QTimer::timeout, this, &RetiredStreams::drop);
}

void RetiredStreams::add(std::shared_ptr<RouteStreams> streams) {
    QElapsedTimer time;
    time.start();
    m_retired.push_back({std::move(streams), time});
    m_timer.start();
}

bool RetiredStreams::isOver(Retired &retired) const {
    const auto age = std::chrono::milliseconds(retired.time.elapsed());
    if (!retired.streams->isIntact() || retired.isUnlinked) {
        return true;
    }
    if (age >= limit || (age >= rest && !m_graph.wiring().isFed(retired.streams->captureNode()))) {
        // Gone from the graph before they go themselves: what the server has to say about that
        // holds descriptors, which nobody would close afterwards.
        retired.streams->leaveGraph();
        retired.isUnlinked = true;
    }
    return false;
}

void RetiredStreams::drop() {
    std::erase_if(m_retired, [this](Retired &retired) { return isOver(retired); });
    if (m_retired.empty()) {
        m_timer.stop();
    }
}

} // namespace perchly
