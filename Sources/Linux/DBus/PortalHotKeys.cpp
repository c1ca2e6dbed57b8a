#include "PortalHotKeys.h"

#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QGuiApplication>
#include <QKeySequence>

namespace perchly {

namespace {

constexpr std::chrono::minutes bindingTimeout{2};
constexpr int namingTimeout = 3000; // milliseconds
const QString desktopPortal = QStringLiteral("org.freedesktop.portal.Desktop");
const QString desktopPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString shortcutsInterface = QStringLiteral("org.freedesktop.portal.GlobalShortcuts");

/// In the portal's form: "CTRL+ALT+space".
QString triggerOf(QKeyCombination chord) {
    QString text;
    const auto add = [&](Qt::KeyboardModifier modifier, const char *name) {
        if (chord.keyboardModifiers().testFlag(modifier)) {
            text += QLatin1StringView(name);
        }
    };
    add(Qt::ControlModifier, "CTRL+");
    add(Qt::AltModifier, "ALT+");
    add(Qt::ShiftModifier, "SHIFT+");
    add(Qt::MetaModifier, "LOGO+");
    const QString key = QKeySequence(chord.key()).toString(QKeySequence::PortableText);
    const bool isCharacter = key.size() == 1 || chord.key() == Qt::Key_Space;
    return text + (isCharacter ? key.toLower() : key);
}

} // namespace

QDBusArgument &operator<<(QDBusArgument &argument, const PortalShortcut &shortcut) {
    argument.beginStructure();
    argument << shortcut.identifier << shortcut.options;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, PortalShortcut &shortcut) {
    argument.beginStructure();
    argument >> shortcut.identifier >> shortcut.options;
    argument.endStructure();
    return argument;
}

PortalHotKeys::PortalHotKeys(std::shared_ptr<SessionBus> bus, QStringList names)
    : m_bus(std::move(bus))
    , m_names(std::move(names)) {
    qRegisterMetaType<QDBusObjectPath>(); // otherwise QtDBus does not find the slot
    qDBusRegisterMetaType<PortalShortcut>();
    qDBusRegisterMetaType<QList<PortalShortcut>>();
    m_begin.setSingleShot(true);
    m_begin.setInterval(0);
    connect(&m_begin, &QTimer::timeout, this, &PortalHotKeys::begin);
    connect(m_bus.get(), &SessionBus::connected, this, &PortalHotKeys::begin);
}

PortalHotKeys::~PortalHotKeys() {
    end();
}

bool PortalHotKeys::registerChord(int identifier, QKeyCombination chord) {
    m_released.remove(identifier);
    if (!m_chords.contains(identifier) || m_chords.value(identifier) != chord) {
        m_chords.insert(identifier, chord);
        m_begin.start();
    }
    return m_isSupported;
}

void PortalHotKeys::releaseChord(int identifier) {
    m_released.insert(identifier);
}

void PortalHotKeys::begin() {
    end();
    QDBusConnection bus = m_bus->connection();
    if (!bus.isConnected()) {
        refuse();
        return;
    }
    m_isSupported = true;
    // Without the service, whose owner QtDBus would wait for.
    bus.connect({}, desktopPath, shortcutsInterface, QStringLiteral("Activated"), this,
                SLOT(onActivated(QDBusObjectPath, QString, qulonglong, QVariantMap)));
    // The portal wants an application. It knows that of a program that systemd has started; newer
    // ones let others name theirs, once, before other calls. An error changes nothing.
    QDBusMessage call = QDBusMessage::createMethodCall(
        desktopPortal, desktopPath, QStringLiteral("org.freedesktop.host.portal.Registry"),
        QStringLiteral("Register"));
    call.setArguments({QGuiApplication::desktopFileName(), QVariantMap()});
    auto *naming = new QDBusPendingCallWatcher(bus.asyncCall(call, namingTimeout), this);
    connect(naming, &QDBusPendingCallWatcher::finished, this, [this, naming] {
        naming->deleteLater();
        createSession();
    });
}

void PortalHotKeys::createSession() {
    m_request = std::make_unique<PortalRequest>(
        m_bus->connection(), QStringLiteral("GlobalShortcuts"), QStringLiteral("CreateSession"),
        QVariantList(),
        QVariantMap{{QStringLiteral("session_handle_token"), QStringLiteral("perchly")}},
        [this](PortalRequest::Response, const QVariantMap &results) {
            m_session = results.value(QStringLiteral("session_handle")).toString();
            if (m_session.isEmpty()) {
                refuse();
            } else {
                QMetaObject::invokeMethod(this, &PortalHotKeys::bind, Qt::QueuedConnection);
            }
        },
        bindingTimeout);
}

void PortalHotKeys::end() {
    if (!m_session.isEmpty()) {
        m_bus->connection().send(QDBusMessage::createMethodCall(
            desktopPortal, m_session, QStringLiteral("org.freedesktop.portal.Session"),
            QStringLiteral("Close")));
        m_session.clear();
    }
}

void PortalHotKeys::bind() {
    QList<PortalShortcut> shortcuts;
    for (auto chord = m_chords.cbegin(); chord != m_chords.cend(); ++chord) {
        shortcuts.append({QString::number(chord.key()),
                          {{QStringLiteral("description"), m_names.value(chord.key())},
                           {QStringLiteral("preferred_trigger"), triggerOf(chord.value())}}});
    }
    m_request = std::make_unique<PortalRequest>(
        m_bus->connection(), QStringLiteral("GlobalShortcuts"), QStringLiteral("BindShortcuts"),
        QVariantList{QVariant::fromValue(QDBusObjectPath(m_session)),
                     QVariant::fromValue(shortcuts), QString()},
        QVariantMap(),
        [this](PortalRequest::Response, const QVariantMap &results) {
            if (results.isEmpty()) {
                refuse();
            }
        },
        bindingTimeout);
}

void PortalHotKeys::refuse() {
    end();
    m_isSupported = false;
    Q_EMIT keyboardChanged();
}

void PortalHotKeys::onActivated(const QDBusObjectPath &session, const QString &identifier,
                                qulonglong /*time*/, const QVariantMap & /*options*/) {
    const int number = identifier.toInt();
    if (session.path() == m_session && !m_released.contains(number)) {
        Q_EMIT pressed(number);
    }
}

} // namespace perchly
