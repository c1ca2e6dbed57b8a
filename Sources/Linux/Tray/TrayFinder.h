#pragma once

#include <QAbstractNativeEventFilter>
#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QTimer>

namespace perchly {

/// Waits for a panel that shows status icons. Newer panels offer a service on the session bus,
/// older ones own an X selection. Many do both, selection first, so the service gets a second to
/// appear. Main thread only.
class TrayFinder : public QObject, private QAbstractNativeEventFilter {
    Q_OBJECT
public:
    /// Finds nothing on a bus that is not connected, or on a platform other than X.
    explicit TrayFinder(const QDBusConnection &bus, QObject *parent = nullptr);
    ~TrayFinder() override;

Q_SIGNALS:
    /// There is a panel now. Emitted once, from the event loop.
    void found();

private Q_SLOTS:
    void askService();

private:
    bool nativeEventFilter(const QByteArray &type, void *message, qintptr *result) override;
    void watchService();
    void watchSelection();
    [[nodiscard]] bool hasSelection() const;
    void finish();

    QDBusConnection m_bus;
    QDBusServiceWatcher m_watcher;
    QTimer m_selectionDelay;
    bool m_found = false;
    quint32 m_managerAtom = 0; ///< 0 without an X display
    quint32 m_selectionAtom = 0;
};

} // namespace perchly
