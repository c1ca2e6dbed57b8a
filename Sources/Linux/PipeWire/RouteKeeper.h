#pragma once

#include "SessionMetadata.h"

#include <QHash>
#include <QObject>
#include <QProcess>
#include <QTimer>

namespace perchly {

/// Tells a companion where the streams of routed processes go if Perchly is killed: the session
/// manager would send them to the default output. It runs while there are such streams and a few
/// seconds longer. If it is killed, the next keep() starts another one. Main thread only.
class RouteKeeper : public QObject {
    Q_OBJECT
public:
    /// The companion's absolute path; nothing is kept if it is empty.
    explicit RouteKeeper(QString program, QObject *parent = nullptr);
    /// Waits for companions to end, for at most a tenth of a second each, and then kills them.
    ~RouteKeeper() override;

    /// Where a stream goes back to; nothing leaves that to the session manager.
    void keep(std::uint32_t node, const std::optional<StreamTarget> &target);
    void forget(std::uint32_t node);

private:
    void start();
    void drop(QProcess *companion);
    void send(std::uint32_t node);
    void dismiss();

    QString m_program;
    QHash<std::uint32_t, std::optional<StreamTarget>> m_kept;
    QProcess *m_companion = nullptr; ///< the current one
    QTimer m_rest;
};

} // namespace perchly
