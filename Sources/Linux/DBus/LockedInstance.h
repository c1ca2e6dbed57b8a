#pragma once

#include "ApplicationObject.h"
#include "SingleInstance.h"

#include <QDeadlineTimer>
#include <QLocalServer>
#include <QLockFile>

#include <memory>

namespace perchly {

/// One instance for each user, by a lock in the runtime folder. A second one knocks at a socket
/// beside it, which works without a session bus too. The instance with the lock is also reachable
/// over the session bus.
class LockedInstance : public SingleInstance {
    Q_OBJECT
public:
    explicit LockedInstance(std::shared_ptr<SessionBus> bus);

    /// With an instance that does not answer it takes a second and says so on stderr. Where no lock
    /// can be written it reports that, too, and returns true: better two instances than none.
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
