#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QTimer>
#include <QVariantMap>

#include <chrono>
#include <functional>
#include <optional>

namespace perchly {

/// One request to the desktop portal, which answers when the user has. Destroying it closes the
/// portal's dialog. Main thread only.
class PortalRequest : public QObject {
    Q_OBJECT
public:
    enum Response : uint {
        Success,
        Cancelled,
        Ended,       ///< failed, or the user closed a dialog of GTK by Escape or its close button,
                     ///< or the portal crashed
        Unavailable, ///< there is no such portal, or it does not answer in time
    };
    /// Called once, never before the constructor has returned. The results are empty unless the
    /// request succeeded. It may destroy this object.
    using Completion = std::function<void(Response response, const QVariantMap &results)>;

    /// Calls a method of org.freedesktop.portal.INTERFACE, whose last argument are the options.
    /// Without `answerTimeout`, the user may take any time.
    PortalRequest(const QDBusConnection &bus, const QString &interface, const QString &method,
                  const QVariantList &arguments, QVariantMap options, Completion completion,
                  std::optional<std::chrono::seconds> answerTimeout = {});
    ~PortalRequest() override;

private Q_SLOTS:
    void onResponse(uint response, const QVariantMap &results);

private:
    void finish(Response response, const QVariantMap &results = {});

    QDBusConnection m_bus;
    QString m_handle;
    QTimer m_timeout;
    bool m_answered = false; ///< the portal shows no dialog any more
    Completion m_completion; ///< null after it was called
};

} // namespace perchly
