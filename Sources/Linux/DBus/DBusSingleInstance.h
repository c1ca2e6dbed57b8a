#pragma once

#include "LockedInstance.h"
#include "SingleInstance.h"

#include <QDBusConnection>

#include <optional>

namespace perchly {

/// One instance on each session bus, by the name "org.perchly.Perchly", and for each person by a
/// lock (see LockedInstance), which an instance that found no bus holds too. The object
/// "/org/perchly/Perchly" offers org.freedesktop.Application, so that a second start, the desktop
/// entry's actions and the person's own shortcuts reach the running instance.
class DBusSingleInstance : public SingleInstance {
    Q_OBJECT
public:
    /// A bus that is not connected, or none, means the lock alone.
    explicit DBusSingleInstance(std::optional<QDBusConnection> bus, QObject *parent = nullptr);
    ~DBusSingleInstance() override;

    /// One round trip to the bus. With an instance that does not answer it takes up to two seconds
    /// and says so on standard error. A bus that does not let the name be had counts as none.
    [[nodiscard]] bool claim() override;

private:
    enum class Name { Ours, Taken, NotToBeHad };

    [[nodiscard]] Name requestName();
    /// False when the other instance has just gone.
    [[nodiscard]] bool activateOther();
    [[nodiscard]] bool claimLock(std::chrono::milliseconds patience = {});

    std::optional<QDBusConnection> m_bus;
    std::optional<LockedInstance> m_lock;
};

} // namespace perchly
