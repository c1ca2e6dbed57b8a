#pragma once

#include "SessionBus.h"
#include "StatusItem.h"

#include <QIcon>
#include <QMenu>
#include <QSystemTrayIcon>

#include <memory>

namespace perchly {

class TrayFinder;

/// A QSystemTrayIcon, created once there is a panel to show it. Qt handles restarts of that panel;
/// a restart of the session bus creates the icon again, but Qt 6.8 finds no panel then. A panel may
/// show the installed symbolic icon instead of the picture. Needs a QApplication.
class TrayStatusItem : public StatusItem {
public:
    explicit TrayStatusItem(std::shared_ptr<SessionBus> bus);
    ~TrayStatusItem() override;

    void show(const QIcon &icon, const QString &accessibleName, const QList<StatusMenuEntry> &menu,
              std::function<void()> activated) override;

private:
    void makeTrayIcon(const QIcon &icon, const QString &accessibleName);

    const std::shared_ptr<SessionBus> m_bus;
    QMenu m_menu;
    std::function<void()> m_activated;
    std::unique_ptr<TrayFinder> m_finder;
    std::unique_ptr<QSystemTrayIcon> m_trayIcon;
};

} // namespace perchly
