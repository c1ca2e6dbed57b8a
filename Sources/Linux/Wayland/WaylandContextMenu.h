#pragma once

#include "ContextMenu.h"

#include <QMenu>
#include <QObject>

#include <memory>

namespace perchly {

class WaylandPanelHost;

/// The panel's menu as its child window: menus of Wayland need an ordinary window, and another
/// layer surface may lie below the panel. The panel has the keyboard and passes its keys on.
class WaylandContextMenu : public QObject, public ContextMenu {
    Q_OBJECT
public:
    /// The host must outlive it.
    explicit WaylandContextMenu(const WaylandPanelHost &host)
        : m_host(host) {}

    void open(const QList<StatusMenuEntry> &entries, QPoint position, Opener opener,
              std::function<void()> closed) override;
    void close() override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    const WaylandPanelHost &m_host;
    std::unique_ptr<QMenu> m_menu; ///< the last one
};

} // namespace perchly
