#include "RetiredStreams.h"

#include "AudioGraph.h"
#include "PipeWireConnection.h"

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr auto lookInterval = 100ms;
constexpr auto rest = 400ms;
constexpr auto limit = 2s;

} // namespace

RetiredStreams::RetiredStreams(PipeWireConnection &connection, const AudioGraph &graph)
    : m_connection(connection)
    , m_graph(graph) {
    m_timer.setInterval(lookInterval);
    connect(&m_timer, &QTimer::timeout, this, &RetiredStreams::look);
    connect(&connection, &PipeWireConnection::lost, this, [this] { m_retired.clear(); });
    connect(&connection, &PipeWireConnection::answered, this, [this](int number) {
        for (Retired &retired : m_retired) {
            retired.isAnswered = retired.isAnswered || retired.question == number;
        }
    });
}

void RetiredStreams::add(std::shared_ptr<RouteStreams> streams) {
    QElapsedTimer time;
    time.start();
    m_retired.push_back({std::move(streams), time});
    m_timer.start();
}

void RetiredStreams::look() {
    std::erase_if(m_retired, [](const Retired &retired) {
        return retired.isAnswered || (!retired.question && !retired.streams->isIntact());
    });
    for (Retired &retired : m_retired) {
        if (!retired.question && isUnused(retired)) {
            retired.streams->closeCapture();
            retired.question = m_connection.ask();
        }
    }
    if (m_retired.empty()) {
        m_timer.stop();
    }
}

bool RetiredStreams::isUnused(const Retired &retired) const {
    const auto age = std::chrono::milliseconds(retired.time.elapsed());
    return age >= limit || (age >= rest && !m_graph.wiring().isFed(retired.streams->captureNode()));
}

} // namespace perchly
