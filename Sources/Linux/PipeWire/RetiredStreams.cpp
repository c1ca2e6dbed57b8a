#include "RetiredStreams.h"

#include "AudioGraph.h"

#include <algorithm>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr auto checkInterval = 100ms;
constexpr auto minAge = 400ms;
constexpr auto maxAge = 2s;

} // namespace

RetiredStreams::RetiredStreams(const AudioGraph &graph, QObject *parent)
    : QObject(parent)
    , m_graph(graph) {
    m_timer.setInterval(checkInterval);
    connect(&m_timer, &QTimer::timeout, this, &RetiredStreams::drop);
}

void RetiredStreams::add(std::shared_ptr<RouteStreams> streams, const QList<std::uint32_t> &sent) {
    QElapsedTimer time;
    time.start();
    m_retired.push_back({std::move(streams), sent, time});
    m_timer.start();
}

/// Streams that another program sent there stay until the end, so they do not count.
bool RetiredStreams::isFed(const Retired &retired) const {
    return std::any_of(retired.sent.cbegin(), retired.sent.cend(), [&](std::uint32_t node) {
        return m_graph.wiring().connects(node, retired.streams->captureNode());
    });
}

bool RetiredStreams::isOver(Retired &retired) const {
    const auto age = std::chrono::milliseconds(retired.time.elapsed());
    if (!retired.streams->isIntact() || retired.isUnlinked) {
        return true;
    }
    if (age >= maxAge || (age >= minAge && !isFed(retired))) {
        // Take them out of the graph before destroying them: the server's last messages hold
        // descriptors that would otherwise leak.
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
