#include "QtContextMenu.h"

namespace perchly {

namespace {

// Like the views' own lists of options.
const QString style =
    QStringLiteral("QMenu { background: #1c1d21; border: 1px solid #42434a; padding: 5px; }"
                   "QMenu::item { border-radius: 7px; color: white; padding: 6px 12px 6px 10px; }"
                   "QMenu::item:selected { background: rgba(255, 255, 255, 28); }");

} // namespace

void fillMenu(QMenu &menu, const QList<StatusMenuEntry> &entries) {
    menu.setStyleSheet(style);
    for (const StatusMenuEntry &entry : entries) {
        QString title = entry.title;
        title.replace(QLatin1Char('&'), QStringLiteral("&&")); // a single & underlines a letter
        QAction *action = menu.addAction(title);
        action->setShortcut(entry.shortcut);
        action->setShortcutVisibleInContextMenu(true);
        QObject::connect(action, &QAction::triggered, action, entry.action);
    }
}

void QtContextMenu::open(const QList<StatusMenuEntry> &entries, QPoint position, Opener opener,
                         std::function<void()> closed) {
    m_menu = std::make_unique<QMenu>();
    fillMenu(*m_menu, entries);
    QObject::connect(m_menu.get(), &QMenu::aboutToHide, m_menu.get(), closed);
    m_menu->popup(position);
    if (opener == Opener::Keys) {
        m_menu->setActiveAction(m_menu->actions().constFirst());
    }
}

void QtContextMenu::close() {
    if (m_menu) {
        m_menu->close();
    }
}

} // namespace perchly
