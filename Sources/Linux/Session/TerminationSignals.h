#pragma once

#include <QObject>

namespace perchly {

/// Tells when SIGTERM, SIGINT or SIGHUP asks the process to end, so that it can clean up. The
/// second such signal ends it at once. One object for the process; main thread only. Programs that
/// this one starts are not affected.
class TerminationSignals : public QObject {
    Q_OBJECT
public:
    explicit TerminationSignals(QObject *parent = nullptr);
    ~TerminationSignals() override;

Q_SIGNALS:
    void requested();
};

} // namespace perchly
