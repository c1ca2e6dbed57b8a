#pragma once

#include "SessionBus.h"
#include "SingleInstance.h"

#include <QDBusContext>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

#include <memory>

namespace perchly {

/// The object "/org/perchly/Perchly" on the session bus, under the name "org.perchly.Perchly". The
/// desktop entry, its actions and the user's own shortcuts reach the program through it. Only the
/// slots are on the bus; each returns the error of a command that failed.
class ApplicationObject : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")
public:
    ApplicationObject(std::shared_ptr<SessionBus> bus, SingleInstance::Performer performer);

public Q_SLOTS:
    /// Shows the shelf.
    void Activate(const QVariantMap &platformData);
    /// The action is the name of a command and the parameters are its arguments. An action without
    /// parameters may name both: "focus-start".
    void ActivateAction(const QString &action, const QVariantList &parameters,
                        const QVariantMap &platformData);
    /// Holds files, folders and web links.
    void Open(const QStringList &uris, const QVariantMap &platformData);

private:
    void offer();
    void perform(const QStringList &command);

    std::shared_ptr<SessionBus> m_bus;
    SingleInstance::Performer m_performer;
};

} // namespace perchly
