#include "FieldPasting.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QPointer>
#include <QQuickItem>

namespace perchly {

namespace {

constexpr qsizetype maxTextBytes = 1'000'000;

/// The object as an editable text field, or null.
QQuickItem *editableField(QObject *object) {
    const bool isField = object->inherits("QQuickTextEdit") || object->inherits("QQuickTextInput");
    return isField && !object->property("readOnly").toBool() ? static_cast<QQuickItem *>(object)
                                                             : nullptr;
}

void placeCursor(QQuickItem *field, QPointF at) {
    int position = 0;
    if (field->inherits("QQuickTextEdit")) {
        QMetaObject::invokeMethod(field, "positionAt", Q_RETURN_ARG(int, position),
                                  Q_ARG(qreal, at.x()), Q_ARG(qreal, at.y()));
    } else {
        position = field->property("cursorPosition").toInt(); // set by the press already
    }
    field->setProperty("cursorPosition", position);
}

/// Inserts like an input method: replaces the selection, respects the field's limits, and can be
/// undone in one step.
void insert(QQuickItem *field, const QString &text) {
    QInputMethodEvent event;
    event.setCommitString(text);
    QCoreApplication::sendEvent(field, &event);
}

} // namespace

FieldPasting::FieldPasting(Pasteboard &pasteboard)
    : m_pasteboard(pasteboard) {
    // On each change of the clipboard, fields would ask its owner for its formats.
    QGuiApplication::clipboard()->blockSignals(true);
    QCoreApplication::instance()->installEventFilter(this);
}

FieldPasting::~FieldPasting() {
    QGuiApplication::clipboard()->blockSignals(false);
}

bool FieldPasting::eventFilter(QObject *object, QEvent *event) {
    if (event->type() == QEvent::KeyPress) {
        auto *field = static_cast<QKeyEvent *>(event)->matches(QKeySequence::Paste)
                          ? editableField(object)
                          : nullptr;
        if (field) {
            paste(field, PasteboardSource::Copied);
            return true;
        }
    } else if (event->type() == QEvent::MouseButtonRelease) {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        auto *field = mouse->button() == Qt::MiddleButton ? editableField(object) : nullptr;
        if (field) {
            placeCursor(field, mouse->position());
            paste(field, PasteboardSource::Selected);
            return true;
        }
    }
    return QObject::eventFilter(object, event);
}

void FieldPasting::paste(QQuickItem *field, PasteboardSource source) {
    if (m_pending == 0) {
        m_readings.clear();
    }
    ++m_pending;
    m_readings.push_back(
        m_pasteboard.read({.source = source, .maxTextBytes = maxTextBytes},
                          [this, target = QPointer(field)](const PasteboardContent &content) {
                              --m_pending;
                              if (target && !content.text.isEmpty()) {
                                  insert(target, content.text);
                              }
                          }));
}

} // namespace perchly
