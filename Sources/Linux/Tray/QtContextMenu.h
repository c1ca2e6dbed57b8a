#pragma once

#include "ContextMenu.h"

#include <QMenu>

#include <memory>

namespace perchly {

/// Adds the entries to the menu.
void fillMenu(QMenu &menu, const QList<StatusMenuEntry> &entries);

/// A QMenu, which is a window of its own: the shelf's pill has no room for a menu. Needs a
/// QApplication.
class QtContextMenu : public ContextMenu {
public:
    void open(const QList<StatusMenuEntry> &entries, QPoint position, Opener opener,
              std::function<void()> closed) override;
    void close() override;

private:
    std::unique_ptr<QMenu> m_menu; ///< the last one
};

} // namespace perchly
