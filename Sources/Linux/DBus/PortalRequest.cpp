#include "PortalRequest.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>

#include <algorithm>
#include <utility>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr auto requestTimeout = 3s; // the portal may have to start
const QString requestService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString requestPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString requestInterface = QStringLiteral("org.freedesktop.portal.Request");

} // namespace

PortalRequest::PortalRequest(const QDBusConnection &bus, const QString &interface,
                             const QString &method, const QVariantList &arguments,
                             QVariantMap options, Completion completion,
                             std::optional<std::chrono::seconds> answerTimeout)
    : m_bus(bus)
    , m_completion(std::move(completion)) {
    static int number = 0;
    const QString token = QStringLiteral("perchly%1").arg(++number);
    const QString sender = m_bus.baseService().mid(1).replace(u'.', u'_');
    m_handle = requestPath + QStringLiteral("/request/") + sender + u'/' + token;
    // Without the service, whose owner QtDBus would wait for.
    m_bus.connect({}, m_handle, requestInterface, QStringLiteral("Response"), this,
                  SLOT(onResponse(uint, QVariantMap)));
    options.insert(QStringLiteral("handle_token"), token);
    QDBusMessage call = QDBusMessage::createMethodCall(
        requestService, requestPath, QStringLiteral("org.freedesktop.portal.") + interface, method);
    call.setArguments(arguments + QVariantList{options});
    auto *pending = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, [this, pending, answerTimeout] {
        m_timeout.stop();
        if (pending->isError()) {
            m_answered = true;
            finish(Unavailable);
        } else if (answerTimeout) {
            m_timeout.start(*answerTimeout);
        }
    });
    auto *portal = new QDBusServiceWatcher(requestService, m_bus,
                                           QDBusServiceWatcher::WatchForUnregistration, this);
    connect(portal, &QDBusServiceWatcher::serviceUnregistered, this, [this] {
        m_answered = true;
        finish(Ended);
    });
    m_timeout.setSingleShot(true);
    connect(&m_timeout, &QTimer::timeout, this, [this] { finish(Unavailable); });
    m_timeout.start(requestTimeout);
}

PortalRequest::~PortalRequest() {
    if (!m_answered) {
        m_bus.send(QDBusMessage::createMethodCall(requestService, m_handle, requestInterface,
                                                  QStringLiteral("Close")));
    }
}

void PortalRequest::onResponse(uint response, const QVariantMap &results) {
    m_answered = true;
    finish(Response(std::min<uint>(response, Ended)), results);
}

void PortalRequest::finish(Response response, const QVariantMap &results) {
    if (const auto completion = std::exchange(m_completion, nullptr)) {
        completion(response, response == Success ? results : QVariantMap());
    }
}

} // namespace perchly
