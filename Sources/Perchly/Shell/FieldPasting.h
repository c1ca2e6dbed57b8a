#pragma once

#include "Pasteboard.h"

#include <vector>

class QQuickItem;

namespace perchly {

/// Pastes into the text fields of all windows through the pasteboard, with a short delay. Qt's own
/// pasting queries the owner of a copy on the main thread, and hangs if that program does. Handles
/// the paste keys and the middle button. Fields get no clipboard changes, so their `canPaste` is
/// unreliable. Leaves copying and cutting to Qt. Needs a QGuiApplication. Main thread only.
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
    std::vector<Task> m_readings; ///< kept until all of them have finished
};

} // namespace perchly
