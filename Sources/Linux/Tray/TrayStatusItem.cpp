#include "TrayStatusItem.h"

#include "NamedIcon.h"
#include "TrayFinder.h"

#include <QApplication>
#include <QCursor>
#include <QStandardPaths>

namespace perchly {

namespace {

/// The name of the symbolic icon that belongs to the desktop entry; empty if it is not installed
/// where every icon theme finds it.
QString symbolicIconName() {
    const QString name = QGuiApplication::desktopFileName() + QStringLiteral("-symbolic");
    const QString file =
        QStringLiteral("icons/hicolor/symbolic/apps/") + name + QStringLiteral(".svg");
    const bool isInstalled =
        !QStandardPaths::locate(QStandardPaths::GenericDataLocation, file).isEmpty();
    return isInstalled ? name : QString();
}

} // namespace

TrayStatusItem::TrayStatusItem(const QDBusConnection &bus)
    : m_bus(bus) {}

TrayStatusItem::~TrayStatusItem() = default;

void TrayStatusItem::show(const QIcon &icon, const QString &accessibleName,
                          const QList<StatusMenuEntry> &menu) {
    if (qobject_cast<QApplication *>(QCoreApplication::instance()) == nullptr) {
        return;
    }
    m_icon = icon;
    m_accessibleName = accessibleName;
    const bool isShown = m_trayIcon != nullptr;
    m_trayIcon.reset(); // it shows the old menu
    fillMenu(menu);
    if (isShown) {
        makeTrayIcon();
    } else if (!m_finder) {
        m_finder = std::make_unique<TrayFinder>(m_bus);
        QObject::connect(m_finder.get(), &TrayFinder::found, m_finder.get(), [this] {
            makeTrayIcon();
            m_finder.release()->deleteLater(); // this is its own signal
        });
    }
}

void TrayStatusItem::fillMenu(const QList<StatusMenuEntry> &entries) {
    m_menu = std::make_unique<QMenu>();
    for (const StatusMenuEntry &entry : entries) {
        QString title = entry.title;
        title.replace(QLatin1Char('&'), QStringLiteral("&&")); // no underlined letters
        QAction *action = m_menu->addAction(title);
        action->setShortcut(entry.shortcut);
        action->setShortcutVisibleInContextMenu(true);
        QObject::connect(action, &QAction::triggered, action, entry.action);
    }
}

void TrayStatusItem::makeTrayIcon() {
    const QString name = symbolicIconName();
    m_trayIcon =
        std::make_unique<QSystemTrayIcon>(name.isEmpty() ? m_icon : namedIcon(name, m_icon));
    m_trayIcon->setToolTip(m_accessibleName);
    m_trayIcon->setContextMenu(m_menu.get());
    QObject::connect(m_trayIcon.get(), &QSystemTrayIcon::activated, m_menu.get(),
                     [menu = m_menu.get()](QSystemTrayIcon::ActivationReason reason) {
                         if (reason == QSystemTrayIcon::Trigger) {
                             menu->popup(QCursor::pos());
                         }
                     });
    m_trayIcon->show();
}

} // namespace perchly
