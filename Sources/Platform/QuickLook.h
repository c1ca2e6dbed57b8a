#pragma once

#include <QList>
#include <QUrl>

namespace perchly {

/// One window that shows what is in a file, or where a link leads, without opening it. Nothing that
/// it shows is ever run. Nothing blocks. Main thread only.
class QuickLook {
public:
    enum class Manner {
        Show,  ///< brings the window to the front
        Toggle ///< the same, but closes the window if it shows that item already
    };

    virtual ~QuickLook() = default;

    /// Shows the item of that index; the person may go on to the others. An index that is none does
    /// nothing.
    virtual void look(const QList<QUrl> &items, qsizetype index, Manner manner) = 0;
};

} // namespace perchly
