#pragma once

#include "AudioRoute.h"
#include "SessionMetadata.h"

#include <QHash>
#include <QObject>
#include <QSet>

namespace perchly {

class AudioGraph;
class RouteKeeper;

/// Sends all current and later streams of a process to one node, and back to where they were.
/// Streams whose program forbids moving stay. Main thread only.
class ProcessMove : public QObject {
    Q_OBJECT
public:
    /// The target is a node name: the session manager would remember a serial number for all
    /// instances of the program.
    ProcessMove(AudioGraph &graph, RouteKeeper &keeper, AudioObject process, const QString &target);
    /// Leaves streams where they are unless undo() was called.
    ~ProcessMove() override;

    /// `sink` is the target's node.
    void begin(std::uint32_t sink);
    /// Does nothing before begin(). Streams that another program has moved stay there.
    void undo();

    /// The nodes of the streams that were moved to the target.
    [[nodiscard]] QList<std::uint32_t> streams() const { return m_before.keys(); }

Q_SIGNALS:
    /// Another program has moved one of the streams, so no more streams are moved. Emitted in a
    /// callback of the connection.
    void takenOver();

private:
    void move(std::uint32_t node);
    void watch(std::uint32_t node);
    void endFor(std::uint32_t node);
    void note(std::uint32_t node);
    void forget(std::uint32_t node);
    [[nodiscard]] std::optional<StreamTarget> originalTarget(std::uint32_t node) const;

    AudioGraph &m_graph;
    RouteKeeper &m_keeper;
    AudioObject m_process;
    StreamTarget m_target;
    QHash<std::uint32_t, std::optional<StreamTarget>>
        m_before;                  ///< the original target of each moved stream
    QSet<std::uint32_t> m_arrived; ///< seen at the target, in the table or by a link
    bool m_isUnderWay = false;
    bool m_isTakenOver = false;
};

} // namespace perchly
