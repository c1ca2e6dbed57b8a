#pragma once

#include <QDBusAbstractAdaptor>
#include <QStringList>
#include <QVariantMap>

namespace perchly {

/// The interface by which a desktop reaches a running application.
class ApplicationAdaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")
public:
    explicit ApplicationAdaptor(QObject *parent);

public Q_SLOTS:
    void Open(const QStringList &uris, const QVariantMap &platformData);
    void Activate(const QVariantMap &platformData);
    void ActivateAction(const QString &action, const QVariantList &parameter,
                        const QVariantMap &platformData);

Q_SIGNALS:
    /// One of the actions that SingleInstance names. Others are ignored, and so is opening files.
    void requested(const QString &action);
};

} // namespace perchly
