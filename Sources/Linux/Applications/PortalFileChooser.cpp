#include "PortalFileChooser.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QFile>
#include <QWindow>

#include <chrono>
#include <utility>

namespace perchly {

using namespace std::chrono_literals;

namespace {

struct FilterRule {
    uint kind = 0; ///< 0 for a pattern of names
    QString pattern;
};

struct FileFilter {
    QString name;
    QList<FilterRule> rules;
};

QDBusArgument &operator<<(QDBusArgument &argument, const FilterRule &rule) {
    argument.beginStructure();
    argument << rule.kind << rule.pattern;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, FilterRule &rule) {
    argument.beginStructure();
    argument >> rule.kind >> rule.pattern;
    argument.endStructure();
    return argument;
}

QDBusArgument &operator<<(QDBusArgument &argument, const FileFilter &filter) {
    argument.beginStructure();
    argument << filter.name << filter.rules;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, FileFilter &filter) {
    argument.beginStructure();
    argument >> filter.name >> filter.rules;
    argument.endStructure();
    return argument;
}

constexpr auto portalTimeout = 3s; // the portal may have to start
const QString chooserService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString chooserPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString requestInterface = QStringLiteral("org.freedesktop.portal.Request");

QVariantMap optionsFor(const OpenPanel::Request &request, const QString &token) {
    QVariantMap options{{QStringLiteral("handle_token"), token},
                        {QStringLiteral("multiple"), true}};
    if (!request.confirmLabel.isEmpty()) {
        options.insert(QStringLiteral("accept_label"), request.confirmLabel);
    }
    if (!request.folder.isEmpty()) {
        options.insert(QStringLiteral("current_folder"),
                       QFile::encodeName(request.folder).append('\0'));
    }
    if (request.choice == OpenPanel::Choice::Applications) {
        qDBusRegisterMetaType<FilterRule>();
        qDBusRegisterMetaType<QList<FilterRule>>();
        qDBusRegisterMetaType<FileFilter>();
        qDBusRegisterMetaType<QList<FileFilter>>();
        const FileFilter filter{
            QCoreApplication::translate("OpenPanel", "Applications (*.desktop)"),
            {{0, QStringLiteral("*.desktop")}}};
        options.insert(QStringLiteral("filters"), QVariant::fromValue(QList{filter}));
    }
    return options;
}

} // namespace

PortalFileChooser::PortalFileChooser(const QDBusConnection &bus, const OpenPanel::Request &request,
                                     const QWindow *window, Completion completion)
    : m_bus(bus)
    , m_completion(std::move(completion)) {
    static int number = 0;
    const QString token = QStringLiteral("perchly%1").arg(++number);
    const QString sender = m_bus.baseService().mid(1).replace(u'.', u'_');
    m_handle = chooserPath + QStringLiteral("/request/") + sender + u'/' + token;
    // Without the service, whose owner QtDBus would wait for.
    m_bus.connect({}, m_handle, requestInterface, QStringLiteral("Response"), this,
                  SLOT(onResponse(uint, QVariantMap)));
    QDBusMessage call = QDBusMessage::createMethodCall(
        chooserService, chooserPath, QStringLiteral("org.freedesktop.portal.FileChooser"),
        QStringLiteral("OpenFile"));
    call << (window != nullptr ? QStringLiteral("x11:%1").arg(window->winId(), 0, 16) : QString())
         << request.title << optionsFor(request, token);
    auto *pending = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, [this, pending] {
        m_timeout.stop();
        if (pending->isError()) {
            m_answered = true;
            finish(std::nullopt);
        }
    });
    m_timeout.setSingleShot(true);
    connect(&m_timeout, &QTimer::timeout, this, [this] { finish(std::nullopt); });
    m_timeout.start(portalTimeout);
}

PortalFileChooser::~PortalFileChooser() {
    if (!m_answered) {
        m_bus.send(QDBusMessage::createMethodCall(chooserService, m_handle, requestInterface,
                                                  QStringLiteral("Close")));
    }
}

void PortalFileChooser::onResponse(uint response, const QVariantMap &results) {
    m_answered = true;
    QList<QUrl> chosen;
    for (const QString &uri : results.value(QStringLiteral("uris")).toStringList()) {
        chosen.append(QUrl::fromEncoded(uri.toUtf8()));
    }
    constexpr uint failed = 2;
    finish(response == failed ? std::nullopt : std::optional(chosen));
}

void PortalFileChooser::finish(const std::optional<QList<QUrl>> &chosen) {
    if (const auto completion = std::exchange(m_completion, nullptr)) {
        completion(chosen);
    }
}

} // namespace perchly
