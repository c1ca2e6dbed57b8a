#pragma once

#include <QList>
#include <QUrl>

namespace perchly {

/// One window that previews a file, or shows a link's address, without opening it. Nothing
/// that it shows is ever run. Nothing blocks. Main thread only.
class QuickLook {
public:
    virtual ~QuickLook() = default;

    /// Shows the item of that index in front, or closes the window if it shows that item already.
    /// From there the user may go on to the others. An invalid index does nothing.
    virtual void look(const QList<QUrl> &items, qsizetype index) = 0;
};

} // namespace perchly
