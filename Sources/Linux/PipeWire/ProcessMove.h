#pragma once

#include "AudioRoute.h"
#include "SessionMetadata.h"

#include <QHash>
#include <QObject>
#include <QSet>

namespace perchly {

class AudioGraph;
class RouteKeeper;

/// Sends all streams of one process to one node, those that it opens later too, and lets them go
/// back to where they were. Streams whose program forbids it stay where they are. Main thread only.
class ProcessMove : public QObject {
    Q_OBJECT
public:
    /// The target is the node's name. Its serial number would be remembered by the session manager
    /// for programs of that kind, and others would be drawn there.
    ProcessMove(AudioGraph &graph, RouteKeeper &keeper, AudioObject process, const QString &target);
    /// What has not been undone is left as it is.
    ~ProcessMove() override;

    void begin();
    /// Harmless when it has not begun. Streams that somebody else has moved meanwhile stay there.
    void undo();

    /// Those that have been sent there.
    [[nodiscard]] QList<std::uint32_t> streams() const { return m_before.keys(); }

Q_SIGNALS:
    /// Somebody else has moved one of the streams. From within a callback of the connection.
    void takenOver();

private:
    void move(std::uint32_t node);
    void watch(std::uint32_t node);
    void note(std::uint32_t node);
    void forget(std::uint32_t node);
    [[nodiscard]] std::optional<StreamTarget> wish(std::uint32_t node) const;

    AudioGraph &m_graph;
    RouteKeeper &m_keeper;
    AudioObject m_process;
    StreamTarget m_target;
    QHash<std::uint32_t, std::optional<StreamTarget>>
        m_before;                  ///< of the streams moved; where each goes back to
    QSet<std::uint32_t> m_arrived; ///< moved as far as the table says
    bool m_isUnderWay = false;
};

} // namespace perchly
