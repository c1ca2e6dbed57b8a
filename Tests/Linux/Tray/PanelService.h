#pragma once

#include <QDBusConnection>
#include <QStringList>
#include <QThread>

#include <atomic>

/// The service of a panel that shows status icons, on a connection and thread of its own, since the
/// toolkit asks it questions and waits for the answers.
class PanelService : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ hasPanel)
public:
    PanelService() {
        moveToThread(&m_thread);
        m_thread.start();
    }
    ~PanelService() override {
        run([this] {
            m_bus.unregisterService(m_name);
            m_bus.unregisterObject(m_path);
            moveToThread(m_thread.thread()); // to be destroyed there
        });
        m_thread.quit();
        m_thread.wait();
    }

    [[nodiscard]] bool hasPanel() const { return m_hasPanel; }

    /// Takes its name on the bus.
    void appear() {
        run([this] {
            m_bus.registerObject(m_path, this, QDBusConnection::ExportAllContents);
            m_bus.registerService(m_name);
        });
    }

    /// The panel that it serves has come.
    void setPanel() {
        m_hasPanel = true;
        run([this] { Q_EMIT StatusNotifierHostRegistered(); });
    }

    /// Gives up its name, as when the panel ends.
    void disappear() {
        run([this] { m_bus.unregisterService(m_name); });
    }

    /// The bus names of the items that have registered, oldest first.
    [[nodiscard]] QStringList items() {
        QStringList items;
        run([this, &items] { items = m_items; });
        return items;
    }

public Q_SLOTS:
    void RegisterStatusNotifierItem(const QString &item) { m_items.append(item); }

Q_SIGNALS:
    void StatusNotifierHostRegistered();

private:
    template <class Action>
    void run(Action action) {
        QMetaObject::invokeMethod(this, action, Qt::BlockingQueuedConnection);
    }

    const QString m_name = QStringLiteral("org.kde.StatusNotifierWatcher");
    const QString m_path = QStringLiteral("/StatusNotifierWatcher");
    QDBusConnection m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, m_name);
    QThread m_thread;
    QStringList m_items;
    std::atomic<bool> m_hasPanel = false;
};
