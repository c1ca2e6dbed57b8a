#pragma once

#include <QObject>

namespace perchly {

/// Reports SIGTERM, SIGINT or SIGHUP, so that the process can clean up before it ends. A second
/// such signal ends the process at once. One object per process; main thread only. Does not affect
/// child processes.
class TerminationSignals : public QObject {
    Q_OBJECT
public:
    explicit TerminationSignals(QObject *parent = nullptr);
    ~TerminationSignals() override;

Q_SIGNALS:
    void requested();
};

} // namespace perchly
