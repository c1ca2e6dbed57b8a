#pragma once

#include "RouteStreams.h"

#include <QElapsedTimer>
#include <QList>
#include <QObject>
#include <QTimer>

#include <memory>
#include <vector>

namespace perchly {

class AudioGraph;

/// Keeps the streams of released routes until the session manager has sent the process' own streams
/// back, so that nothing is lost of what they play, and for a moment more: a stream that ends while
/// the server still connects it never closes what the server sends it. Main thread only.
class RetiredStreams : public QObject {
    Q_OBJECT
public:
    explicit RetiredStreams(const AudioGraph &graph, QObject *parent = nullptr);

    /// The process' own streams, by the numbers of their nodes.
    void add(std::shared_ptr<RouteStreams> streams, const QList<std::uint32_t> &sent);
    [[nodiscard]] bool isEmpty() const { return m_retired.empty(); }

private:
    struct Retired {
        std::shared_ptr<RouteStreams> streams;
        QList<std::uint32_t> sent;
        QElapsedTimer time;
        bool isUnlinked = false;
    };

    [[nodiscard]] bool isOver(Retired &retired) const;
    [[nodiscard]] bool isFed(const Retired &retired) const;
    void drop();

    const AudioGraph &m_graph;
    std::vector<Retired> m_retired;
    QTimer m_timer;
};

} // namespace perchly
