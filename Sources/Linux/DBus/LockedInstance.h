#pragma once

#include "ApplicationObject.h"
#include "SingleInstance.h"

#include <QLocalServer>
#include <QLockFile>

#include <memory>

namespace perchly {

/// One instance per user, by a lock in the runtime folder. Commands arrive through a socket beside
/// it, which also works without a session bus, and over the session bus.
class LockedInstance : public SingleInstance {
public:
    explicit LockedInstance(std::shared_ptr<SessionBus> bus);

    /// Takes two seconds if the other instance does not answer. If no lock can be written, reports
    /// that on stderr and returns nullopt: better two instances than none.
    [[nodiscard]] std::optional<QString> claim(const QStringList &command) override;

private:
    void listen();
    void answer(QLocalSocket *socket);

    const std::shared_ptr<SessionBus> m_bus;
    QLockFile m_lock;
    QLocalServer m_server;
    std::unique_ptr<ApplicationObject> m_object;
};

} // namespace perchly
