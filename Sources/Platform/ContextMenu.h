#pragma once

#include "StatusItem.h"

#include <QPoint>

namespace perchly {

/// A menu beside an item or the pointer. Main thread only.
class ContextMenu {
public:
    enum class Opener { Pointer, Keys };

    virtual ~ContextMenu() = default;

    /// Opens the menu at a global position (in Qt's points, y down), or beside it where the display
    /// ends. It has the pointer and the keyboard until an entry is chosen, Escape or a press
    /// elsewhere; then `closed` is called once, before the chosen action. Keys start at the first
    /// entry. Close an open menu first.
    virtual void open(const QList<StatusMenuEntry> &entries, QPoint position, Opener opener,
                      std::function<void()> closed) = 0;

    /// Does nothing if no menu is open.
    virtual void close() = 0;
};

} // namespace perchly
