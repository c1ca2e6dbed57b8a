#pragma once

#include "StatusItem.h"

#include <QDBusConnection>
#include <QIcon>
#include <QMenu>
#include <QSystemTrayIcon>

#include <memory>

namespace perchly {

class TrayFinder;

/// The status item by the toolkit's tray icon, made when a panel that shows it is there; restarts
/// of that panel are the toolkit's to follow. A panel may put the installed symbolic icon in the
/// place of the picture. It needs a QApplication and does nothing without.
class TrayStatusItem : public StatusItem {
public:
    /// The session bus, connected or not.
    explicit TrayStatusItem(const QDBusConnection &bus);
    ~TrayStatusItem() override;

    void show(const QIcon &icon, const QString &accessibleName,
              const QList<StatusMenuEntry> &menu) override;

private:
    void fillMenu(const QList<StatusMenuEntry> &entries);
    void makeTrayIcon();

    QDBusConnection m_bus;
    QIcon m_icon;
    QString m_accessibleName;
    std::unique_ptr<QMenu> m_menu;
    std::unique_ptr<TrayFinder> m_finder;
    std::unique_ptr<QSystemTrayIcon> m_trayIcon;
};

} // namespace perchly
