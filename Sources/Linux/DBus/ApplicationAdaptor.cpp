#include "ApplicationAdaptor.h"

namespace perchly {

ApplicationAdaptor::ApplicationAdaptor(QObject *parent)
    : QDBusAbstractAdaptor(parent) {}

void ApplicationAdaptor::Open(const QStringList &, const QVariantMap &) {}

void ApplicationAdaptor::Activate(const QVariantMap &) {
    Q_EMIT requested(QStringLiteral("show"));
}

void ApplicationAdaptor::ActivateAction(const QString &action, const QVariantList &,
                                        const QVariantMap &) {
    static const QStringList actions{QStringLiteral("show"), QStringLiteral("search"),
                                     QStringLiteral("workspace"), QStringLiteral("mixer"),
                                     QStringLiteral("settings")};
    if (actions.contains(action)) {
        Q_EMIT requested(action);
    }
}

} // namespace perchly
