#pragma once

#include "SessionMetadata.h"

#include <QHash>
#include <QObject>
#include <QProcess>
#include <QTimer>

namespace perchly {

/// Tells a companion where to send the streams of routed processes if Perchly is killed, since the
/// session manager would send them to the default output. The companion runs while there are such
/// streams and a few seconds longer. If it is killed, keep() restarts it. Main thread only.
class RouteKeeper : public QObject {
    Q_OBJECT
public:
    /// Takes the companion's absolute path; does nothing if it is empty.
    explicit RouteKeeper(QString program, QObject *parent = nullptr);
    /// Waits at most a tenth of a second for each companion to end, then kills it.
    ~RouteKeeper() override;

    /// Stores where a stream goes if Perchly is killed; nullopt leaves that to the session manager.
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
