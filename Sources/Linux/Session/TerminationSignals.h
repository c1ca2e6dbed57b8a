#pragma once

#include <QObject>

namespace perchly {

/// Tells that the process was asked to end by SIGTERM, SIGINT or SIGHUP, so that it can leave
/// things as they were. The second such signal ends it at once. One object for the process; main
/// thread only. Other programs that this one starts are not affected.
class TerminationSignals : public QObject {
    Q_OBJECT
public:
    explicit TerminationSignals(QObject *parent = nullptr);
    ~TerminationSignals() override;
    Q_DISABLE_COPY_MOVE(TerminationSignals)

Q_SIGNALS:
    void requested();
};

} // namespace perchly
