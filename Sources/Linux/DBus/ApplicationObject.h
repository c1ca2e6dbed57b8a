#pragma once

#include "SessionBus.h"

#include <QObject>
#include <QStringList>
#include <QVariantMap>

#include <memory>

namespace perchly {

/// The object "/org/perchly/Perchly" on the session bus, under the name "org.perchly.Perchly". The
/// desktop entry, its actions and the user's own shortcuts reach the program through it. Only the
/// slots are on the bus.
class ApplicationObject : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")
public:
    explicit ApplicationObject(std::shared_ptr<SessionBus> bus);

public Q_SLOTS:
    void Activate(const QVariantMap &platformData);
    void ActivateAction(const QString &action, const QVariantList &parameter,
                        const QVariantMap &platformData);
    /// Does nothing; part of the interface.
    void Open(const QStringList &uris, const QVariantMap &platformData);

Q_SIGNALS:
    /// `action` may be any text that another program sends.
    void requested(const QString &action);

private:
    void offer();

    std::shared_ptr<SessionBus> m_bus;
};

} // namespace perchly
