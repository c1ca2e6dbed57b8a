#pragma once

#include "Notifications.h"
#include "SessionBus.h"

#include <QDBusServiceWatcher>
#include <QObject>
#include <QStringList>

#include <map>
#include <memory>

class QDBusMessage;

namespace perchly {

/// Notifications through "org.freedesktop.Notifications" on the session bus. Asks the server for
/// its capabilities before each one, as it may have been replaced by another.
class BusNotifications : public QObject, public Notifications {
    Q_OBJECT
public:
    explicit BusNotifications(std::shared_ptr<SessionBus> bus);

    void show(const Notification &notification) override;
    void close(const QString &tag) override;

private Q_SLOTS:
    void onActionInvoked(uint id, const QString &key);
    void onClosed(uint id, uint reason);

private:
    struct Entry {
        Notification notification;
        uint id = 0; ///< at the server; 0 if not shown
        bool isClosed = false;
        bool isSending = false;
        bool isOutdated = false; ///< changed while being sent
    };
    using Entries = std::map<QString, Entry>; ///< by their tags
    using Answer = std::function<void(Entry &entry, const QDBusMessage &reply)>;

    void follow();
    [[nodiscard]] Entries::iterator find(uint id);
    void update(const QString &tag);
    void send(const QString &tag, Entry &entry, const QStringList &capabilities);
    void finish(const QString &tag, Entry &entry);
    void call(const QString &tag, const QDBusMessage &message, const Answer &answer);

    std::shared_ptr<SessionBus> m_bus;
    QDBusServiceWatcher m_owner;
    Entries m_entries;
};

} // namespace perchly
