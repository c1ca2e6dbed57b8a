#include "BusNotifications.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QUrl>

#include <algorithm>

namespace perchly {

namespace {

const QString notificationInterface = QStringLiteral("org.freedesktop.Notifications");
const QString notificationPath = QStringLiteral("/org/freedesktop/Notifications");
const QString program = QStringLiteral("org.perchly.Perchly"); // its desktop entry and icon
const QString defaultAction = QStringLiteral("default");
constexpr int serverDecidesTimeout = -1;

QDBusMessage serverCall(const char *method) {
    return QDBusMessage::createMethodCall(notificationInterface, notificationPath,
                                          notificationInterface, QString::fromLatin1(method));
}

/// Each action's key, followed by its label.
QStringList actionsOf(const Notification &notification) {
    QStringList actions{defaultAction, QString()};
    for (qsizetype index = 0; index < notification.actions.size(); ++index) {
        actions << QString::number(index) << notification.actions.at(index).label;
    }
    return actions;
}

} // namespace

BusNotifications::BusNotifications(std::shared_ptr<SessionBus> bus)
    : m_bus(std::move(bus)) {
    connect(m_bus.get(), &SessionBus::connected, this, &BusNotifications::follow);
    connect(m_bus.get(), &SessionBus::lost, this, [this] { m_entries.clear(); });
    m_owner.addWatchedService(notificationInterface); // named like its interface
    connect(&m_owner, &QDBusServiceWatcher::serviceOwnerChanged, this, [this] {
        for (auto &[tag, entry] : m_entries) {
            entry.id = 0; // the next server uses it for another notification
        }
    });
    follow();
}

void BusNotifications::follow() {
    // From any sender: for a well-known name, QtDBus would wait for a bus call.
    QDBusConnection bus = m_bus->connection();
    bus.connect(QString(), notificationPath, notificationInterface, QStringLiteral("ActionInvoked"),
                this, SLOT(onActionInvoked(uint, QString)));
    bus.connect(QString(), notificationPath, notificationInterface,
                QStringLiteral("NotificationClosed"), this, SLOT(onClosed(uint, uint)));
    m_owner.setConnection(bus);
}

void BusNotifications::show(const Notification &notification) {
    Entry &entry = m_entries[notification.tag];
    entry.notification = notification;
    entry.isClosed = false;
    update(notification.tag);
}

void BusNotifications::close(const QString &tag) {
    if (const auto found = m_entries.find(tag); found != m_entries.end()) {
        found->second.isClosed = true;
        update(tag);
    }
}

void BusNotifications::update(const QString &tag) {
    Entry &entry = m_entries[tag];
    entry.isOutdated = entry.isSending;
    if (entry.isSending) {
        return;
    }
    if (entry.isClosed) {
        if (entry.id != 0) {
            m_bus->connection().send(serverCall("CloseNotification") << entry.id);
        }
        m_entries.erase(tag);
        return;
    }
    entry.isSending = true;
    call(tag, serverCall("GetCapabilities"), [this, tag](Entry &asked, const QDBusMessage &reply) {
        if (asked.isClosed) {
            finish(tag, asked);
            return;
        }
        asked.isOutdated = false; // the latest content is sent now
        send(tag, asked, reply.arguments().value(0).toStringList());
    });
}

void BusNotifications::send(const QString &tag, Entry &entry, const QStringList &capabilities) {
    const Notification &content = entry.notification;
    const bool hasMarkup = capabilities.contains(QStringLiteral("body-markup"));
    const bool hasActions = capabilities.contains(QStringLiteral("actions"));
    QVariantMap hints{{QStringLiteral("desktop-entry"), program}};
    if (!content.picture.isEmpty()) {
        hints.insert(QStringLiteral("image-path"),
                     QUrl::fromLocalFile(content.picture).toString(QUrl::FullyEncoded));
    }
    QDBusMessage message = serverCall("Notify");
    message << QStringLiteral("Perchly") << entry.id << program << content.title
            << (hasMarkup ? content.body.toHtmlEscaped() : content.body)
            << (hasActions ? actionsOf(content) : QStringList()) << hints << serverDecidesTimeout;
    call(tag, message, [this, tag](Entry &shown, const QDBusMessage &reply) {
        shown.id = reply.arguments().value(0).toUInt();
        finish(tag, shown);
    });
}

void BusNotifications::finish(const QString &tag, Entry &entry) {
    entry.isSending = false;
    if (entry.isOutdated) {
        update(tag);
    }
}

/// Not answered if the entry is gone. After an error, drops it, unless it has changed meanwhile.
void BusNotifications::call(const QString &tag, const QDBusMessage &message, const Answer &answer) {
    auto *pending = new QDBusPendingCallWatcher(m_bus->connection().asyncCall(message), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, [this, pending, tag, answer] {
        pending->deleteLater();
        const auto found = m_entries.find(tag);
        if (found == m_entries.end()) {
            return;
        }
        if (!pending->isError()) {
            answer(found->second, pending->reply());
        } else if (found->second.isOutdated) {
            finish(tag, found->second);
        } else {
            m_entries.erase(found);
        }
    });
}

BusNotifications::Entries::iterator BusNotifications::find(uint id) {
    return std::ranges::find_if(
        m_entries, [id](const auto &entry) { return entry.second.id == id && id != 0; });
}

void BusNotifications::onActionInvoked(uint id, const QString &key) {
    const auto found = find(id);
    if (found == m_entries.end()) {
        return;
    }
    const Notification shown = found->second.notification; // the action may replace it
    bool isNumber = false;
    const int index = key.toInt(&isNumber);
    if (key == defaultAction) {
        shown.open();
    } else if (isNumber && index >= 0 && index < shown.actions.size()) {
        shown.actions.at(index).run();
    }
}

void BusNotifications::onClosed(uint id, uint) {
    const auto found = find(id);
    if (found == m_entries.end()) {
        return;
    }
    if (found->second.isSending) {
        found->second.id = 0; // the next content does not replace it
    } else {
        m_entries.erase(found);
    }
}

} // namespace perchly
