#pragma once

#include <QList>
#include <QUrl>

namespace perchly {

/// One window that previews a file, or shows a link's address, without opening it. Never runs any
/// content. Nothing blocks. Main thread only.
class QuickLook {
public:
    virtual ~QuickLook() = default;

    /// Shows the item at that index in front, or closes the window if it already shows that item.
    /// In the window the user can switch to the other items. An invalid index does nothing.
    virtual void look(const QList<QUrl> &items, qsizetype index) = 0;
};

} // namespace perchly
