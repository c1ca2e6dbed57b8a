#pragma once

#include "RouteStreams.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <memory>
#include <optional>
#include <vector>

namespace perchly {

class AudioGraph;
class PipeWireConnection;

/// Keeps the streams of released routes until the session manager has sent the process' own streams
/// back, so that nothing is lost of what they play, and ends them then one after the other: a
/// stream that ends while the server still connects it elsewhere never closes the descriptors that
/// the server sends it. Main thread only.
class RetiredStreams : public QObject {
    Q_OBJECT
public:
    RetiredStreams(PipeWireConnection &connection, const AudioGraph &graph);

    void add(std::shared_ptr<RouteStreams> streams);
    [[nodiscard]] bool isEmpty() const { return m_retired.empty(); }

private:
    struct Retired {
        std::shared_ptr<RouteStreams> streams;
        QElapsedTimer time;
        std::optional<int> question; ///< put to the server when the first stream had ended
        bool isAnswered = false;
    };

    void look();
    [[nodiscard]] bool isUnused(const Retired &retired) const;

    PipeWireConnection &m_connection;
    const AudioGraph &m_graph;
    std::vector<Retired> m_retired;
    QTimer m_timer;
};

} // namespace perchly
