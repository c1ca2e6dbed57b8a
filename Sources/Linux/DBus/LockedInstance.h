#pragma once

#include "ApplicationObject.h"
#include "SingleInstance.h"

#include <QDeadlineTimer>
#include <QLocalServer>
#include <QLockFile>

#include <memory>

namespace perchly {

/// One instance per user, by a lock in the runtime folder. A second instance connects to a socket
/// beside it, which also works without a session bus. The instance with the lock is also reachable
/// over the session bus.
class LockedInstance : public SingleInstance {
    Q_OBJECT
public:
    explicit LockedInstance(std::shared_ptr<SessionBus> bus);

    /// Takes a second if the other instance does not answer, and reports that on stderr. If no lock
    /// can be written, reports that, too, and returns true: better two instances than none.
    [[nodiscard]] bool claim() override;

private:
    void listen();
    [[nodiscard]] bool knock(const QDeadlineTimer &deadline);

    const std::shared_ptr<SessionBus> m_bus;
    QString m_folder;
    QLockFile m_lock;
    QLocalServer m_server;
    std::unique_ptr<ApplicationObject> m_object;
};

} // namespace perchly
