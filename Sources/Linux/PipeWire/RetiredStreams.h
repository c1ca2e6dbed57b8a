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

/// Keeps the streams of released routes until the session manager has sent the process's streams
/// back, so that no sound is lost, and a moment longer: a stream that ends while the server is
/// still connecting it leaks descriptors. Main thread only.
class RetiredStreams : public QObject {
    Q_OBJECT
public:
    explicit RetiredStreams(const AudioGraph &graph, QObject *parent = nullptr);

    /// `sent` lists the nodes of the process's own streams.
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
