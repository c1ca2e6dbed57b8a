#include "WatchedPlayer.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

namespace perchly {

using namespace std::chrono_literals;

namespace {

const QString playerPath = QStringLiteral("/org/mpris/MediaPlayer2");
const QString rootInterface = QStringLiteral("org.mpris.MediaPlayer2");
const QString playerInterface = QStringLiteral("org.mpris.MediaPlayer2.Player");
const QString propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");

} // namespace

WatchedPlayer::WatchedPlayer(const QDBusConnection &bus, QString name)
    : m_bus(bus)
    , m_name(std::move(name)) {
    m_burst.setSingleShot(true);
    m_burst.setInterval(50ms);
    connect(&m_burst, &QTimer::timeout, this, &WatchedPlayer::readState);
    // By the unique name: for a well-known one, QtDBus would wait for a bus call.
    const QString daemon = QStringLiteral("org.freedesktop.DBus");
    QDBusMessage call = QDBusMessage::createMethodCall(
        daemon, QStringLiteral("/org/freedesktop/DBus"), daemon, QStringLiteral("GetNameOwner"));
    call << m_name;
    send(call, 30s, [this](const QVariant &owner) { follow(owner.toString()); });
}

void WatchedPlayer::follow(const QString &owner) {
    m_bus.connect(owner, playerPath, propertiesInterface, QStringLiteral("PropertiesChanged"),
                  {playerInterface}, QString(), this,
                  SLOT(onPropertiesChanged(QString, QVariantMap, QStringList)));
    // Some players answer only after they have started.
    ask(rootInterface, 30s, [this](const QVariantMap &properties) {
        m_identity = properties.value(QStringLiteral("Identity")).toString();
        Q_EMIT identified(properties.value(QStringLiteral("DesktopEntry")).toString());
    });
}

void WatchedPlayer::onPropertiesChanged(const QString &, const QVariantMap &values,
                                        const QStringList &invalidated) {
    const QStringList names = values.keys() + invalidated;
    if (!names.contains(QStringLiteral("Metadata")) &&
        !names.contains(QStringLiteral("PlaybackStatus")) &&
        !names.contains(QStringLiteral("CanSeek"))) {
        return; // such as a volume that the user is turning
    }
    Q_EMIT changed();
    if (m_describesChanges && !m_burst.isActive()) {
        m_burst.start();
    }
}

void WatchedPlayer::readState() {
    ask(playerInterface, 1s, [this](const QVariantMap &properties) {
        const auto metadata = qdbus_cast<QVariantMap>(properties.value(QStringLiteral("Metadata")));
        const QString state = properties.value(QStringLiteral("PlaybackStatus")).toString();
        QVariantMap information{{QStringLiteral("Player State"), state}};
        if (!m_identity.isEmpty()) {
            information.insert(QStringLiteral("Player"), m_identity);
        }
        const QString title = metadata.value(QStringLiteral("xesam:title")).toString();
        if (!title.isEmpty()) {
            information.insert(QStringLiteral("Name"), title);
        }
        QStringList artists = metadata.value(QStringLiteral("xesam:artist")).toStringList();
        artists.removeAll(QString());
        if (!artists.isEmpty()) {
            information.insert(QStringLiteral("Artist"), artists.join(QStringLiteral(", ")));
        }
        Q_EMIT described(information);
    });
}

void WatchedPlayer::ask(const QString &interface, std::chrono::milliseconds timeout,
                        const std::function<void(const QVariantMap &)> &answer) {
    QDBusMessage call = QDBusMessage::createMethodCall(m_name, playerPath, propertiesInterface,
                                                       QStringLiteral("GetAll"));
    call << interface;
    call.setAutoStartService(false);
    send(call, timeout,
         [answer](const QVariant &properties) { answer(qdbus_cast<QVariantMap>(properties)); });
}

void WatchedPlayer::send(const QDBusMessage &call, std::chrono::milliseconds timeout,
                         const std::function<void(const QVariant &)> &answer) {
    auto *pending = new QDBusPendingCallWatcher(m_bus.asyncCall(call, int(timeout.count())), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, [pending, answer] {
        pending->deleteLater();
        if (!pending->isError()) {
            answer(pending->reply().arguments().value(0));
        }
    });
}

} // namespace perchly
