#include "TrayStatusItem.h"

#include "NamedIcon.h"
#include "QtContextMenu.h"
#include "TrayFinder.h"

#include <QApplication>
#include <QCursor>
#include <QStandardPaths>

namespace perchly {

namespace {

/// The name of the desktop entry's symbolic icon; empty if it is not installed.
QString symbolicIconName() {
    const QString name = QGuiApplication::desktopFileName() + QStringLiteral("-symbolic");
    const QString file =
        QStringLiteral("icons/hicolor/symbolic/apps/") + name + QStringLiteral(".svg");
    const bool isInstalled =
        !QStandardPaths::locate(QStandardPaths::GenericDataLocation, file).isEmpty();
    return isInstalled ? name : QString();
}

} // namespace

TrayStatusItem::TrayStatusItem(std::shared_ptr<SessionBus> bus)
    : m_bus(std::move(bus)) {}

TrayStatusItem::~TrayStatusItem() = default;

void TrayStatusItem::show(const QIcon &icon, const QString &accessibleName,
                          const QList<StatusMenuEntry> &menu, std::function<void()> activated) {
    fillMenu(m_menu, menu);
    m_activated = std::move(activated);
    const auto findTray = [this, icon, accessibleName] {
        m_trayIcon.reset();
        m_finder = std::make_unique<TrayFinder>(m_bus->connection());
        QObject::connect(m_finder.get(), &TrayFinder::found, &m_menu, [this, icon, accessibleName] {
            makeTrayIcon(icon, accessibleName);
            m_finder.release()->deleteLater(); // the finder is emitting this signal
        });
    };
    QObject::connect(m_bus.get(), &SessionBus::connected, &m_menu, findTray);
    findTray();
}

void TrayStatusItem::makeTrayIcon(const QIcon &icon, const QString &accessibleName) {
    const QString name = symbolicIconName();
    m_trayIcon = std::make_unique<QSystemTrayIcon>(name.isEmpty() ? icon : namedIcon(name, icon));
    m_trayIcon->setToolTip(accessibleName);
    m_trayIcon->setContextMenu(&m_menu);
    // On Wayland, a menu without a window of ours below it becomes an ordinary window.
    const bool canPlaceMenu = QGuiApplication::platformName() != QStringLiteral("wayland");
    QObject::connect(m_trayIcon.get(), &QSystemTrayIcon::activated, &m_menu,
                     [this, canPlaceMenu](QSystemTrayIcon::ActivationReason reason) {
                         const bool isClick = reason == QSystemTrayIcon::Trigger;
                         const bool asksForMenu = reason == QSystemTrayIcon::Context;
                         if (!canPlaceMenu && (isClick || asksForMenu)) {
                             m_activated();
                         } else if (isClick) {
                             m_menu.popup(QCursor::pos());
                         }
                     });
    m_trayIcon->show();
}

} // namespace perchly
