#pragma once

#include "SessionMetadata.h"

#include <QHash>
#include <QObject>
#include <QProcess>
#include <QTimer>

namespace perchly {

/// Tells a companion where the streams of routed processes go when this program dies: it outlives
/// even a kill, and the session manager would send them to the default output. It runs while there
/// is a stream to be kept and a while longer, as the next route is often near. One that was killed
/// is replaced when the next stream is to be kept. Main thread only.
class RouteKeeper : public QObject {
    Q_OBJECT
public:
    /// The companion's absolute path; nothing is kept without one.
    explicit RouteKeeper(QString program, QObject *parent = nullptr);
    /// Waits for the companion to end, a tenth of a second at most, and kills it then; likewise for
    /// an earlier one that is still ending.
    ~RouteKeeper() override;

    /// Replaces what was said about the stream; nothing lets it go by itself.
    void keep(std::uint32_t node, const std::optional<StreamTarget> &target);
    void forget(std::uint32_t node);

private:
    void start();
    void drop(QProcess *companion);
    void say(std::uint32_t node);
    void dismiss();

    QString m_program;
    QHash<std::uint32_t, std::optional<StreamTarget>> m_kept;
    QProcess *m_companion = nullptr; ///< the one that is told what is kept
    QTimer m_rest;
};

} // namespace perchly
