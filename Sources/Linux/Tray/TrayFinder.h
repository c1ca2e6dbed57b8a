#pragma once

#include <QAbstractNativeEventFilter>
#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QTimer>

class QDBusVariant;

namespace perchly {

/// Waits for a place to put a status icon. Newer panels offer a service on the session bus, older
/// ones hold a selection of the X display; many have both and start the selection first, so that
/// the service is given a moment. It waits without waking up. Main thread only.
class TrayFinder : public QObject, private QAbstractNativeEventFilter {
    Q_OBJECT
public:
    /// A bus that is not connected offers nothing, and neither does a platform other than X.
    explicit TrayFinder(const QDBusConnection &bus, QObject *parent = nullptr);
    ~TrayFinder() override;

Q_SIGNALS:
    /// There is a place now. Announced once, from the event loop.
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
