#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QTimer>
#include <QVariantMap>

#include <functional>
#include <optional>

namespace perchly {

/// One request to the desktop portal, which answers when the user has. Destroying it closes the
/// portal's dialog. Main thread only.
class PortalRequest : public QObject {
    Q_OBJECT
public:
    /// Called once, never before the constructor has returned: with the results, which are empty if
    /// the user cancelled, or with nullopt if there is no such portal, it fails or does not answer
    /// in time. It may destroy this object.
    using Completion = std::function<void(const std::optional<QVariantMap> &results)>;

    /// Calls a method of org.freedesktop.portal.INTERFACE, whose last argument are the options.
    PortalRequest(const QDBusConnection &bus, const QString &interface, const QString &method,
                  const QVariantList &arguments, QVariantMap options, Completion completion);
    ~PortalRequest() override;

private Q_SLOTS:
    void onResponse(uint response, const QVariantMap &results);

private:
    void finish(const std::optional<QVariantMap> &results);

    QDBusConnection m_bus;
    QString m_handle;
    QTimer m_timeout;
    bool m_answered = false; ///< the portal shows no dialog any more
    Completion m_completion; ///< null after it was called
};

} // namespace perchly
