#include "WaylandContextMenu.h"

#include "QtContextMenu.h"
#include "WaylandPanelHost.h"

#include <QCoreApplication>
#include <QScreen>
#include <QWindow>

#include <algorithm>

namespace perchly {

void WaylandContextMenu::open(const QList<StatusMenuEntry> &entries, QPoint position, Opener opener,
                              std::function<void()> closed) {
    QWindow &panel = *m_host.panel();
    m_menu = std::make_unique<QMenu>();
    fillMenu(*m_menu, entries);
    connect(m_menu.get(), &QMenu::aboutToHide, m_menu.get(), closed);
    connect(&m_host, &WaylandPanelHost::pressedBesideMenu, m_menu.get(), &QWidget::close);
    static_cast<void>(m_menu->winId()); // creates its window
    m_menu->windowHandle()->setParent(&panel);
    // The panel would delete the window, but not the menu.
    connect(&panel, &QObject::destroyed, m_menu.get(), [this] { m_menu.reset(); });
    const QRect display = panel.screen()->geometry();
    const QSize size = m_menu->sizeHint();
    const QPoint end = display.bottomRight() - QPoint(size.width(), size.height());
    const QPoint place(std::max(display.left(), std::min(position.x(), end.x())),
                       std::max(display.top(), std::min(position.y(), end.y())));
    panel.installEventFilter(this);
    m_menu->popup(place - panel.position());
    if (opener == Opener::Keys) {
        m_menu->setActiveAction(m_menu->actions().constFirst());
    }
}

void WaylandContextMenu::close() {
    if (m_menu) {
        m_menu->close();
    }
}

bool WaylandContextMenu::eventFilter(QObject *watched, QEvent *event) {
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease ||
                       event->type() == QEvent::ShortcutOverride;
    if (isKey && m_menu && m_menu->isVisible()) {
        QCoreApplication::sendEvent(m_menu.get(), event);
        return true;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace perchly
