#pragma once

#include "Pasteboard.h"

#include <vector>

class QQuickItem;

namespace perchly {

/// Keeps the text fields of all windows from asking the program that owns a copy, on the main
/// thread, which would hang while that program does. Pasting with the keys, and with the middle
/// button what is selected elsewhere, go through the pasteboard instead and arrive a moment later;
/// that the clipboard has changed is not told to fields at all, whose `canPaste` is therefore not
/// to be relied on. Copying and cutting are left to the toolkit. Needs a graphical application, and
/// watches all of it for as long as it lives. Main thread only.
class FieldPasting : public QObject {
    Q_OBJECT
public:
    /// The pasteboard must outlive this object.
    explicit FieldPasting(Pasteboard &pasteboard);
    ~FieldPasting() override;

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void paste(QQuickItem *field, PasteboardSource source);

    Pasteboard &m_pasteboard;
    qsizetype m_underWay = 0;
    std::vector<Task> m_readings; ///< those that have ended stay until all have
};

} // namespace perchly
