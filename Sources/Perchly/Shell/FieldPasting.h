#pragma once

#include "Pasteboard.h"

#include <vector>

class QQuickItem;

namespace perchly {

/// Pastes into the text fields of all windows through the pasteboard, a moment later. Qt's own
/// pasting asks the program that owns a copy on the main thread and hangs while that program does.
/// Covers the paste keys and the middle button. Fields hear nothing of clipboard changes, so their
/// `canPaste` is not reliable. Copying and cutting are left to Qt. Needs a QGuiApplication. Main
/// thread only.
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
    qsizetype m_pending = 0;
    std::vector<Task> m_readings; ///< kept until all of them have ended
};

} // namespace perchly
