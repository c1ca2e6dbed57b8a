#pragma once

#include <QPointer>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace perchly {

/// Keeps an editable field from looking at the clipboard whenever another program copies something.
/// The field would ask that program, on the main thread, which forms it offers, only to keep its
/// `canPaste` up to date, and would hang while that program does. Pasting works as before.
class ClipboardGuard : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickItem *field READ field WRITE setField NOTIFY fieldChanged REQUIRED FINAL)
public:
    using QObject::QObject;

    /// A TextEdit or TextInput, which must not be made read-only and editable again afterwards.
    [[nodiscard]] QQuickItem *field() const { return m_field; }
    void setField(QQuickItem *field);

Q_SIGNALS:
    void fieldChanged();

private:
    QPointer<QQuickItem> m_field;
};

} // namespace perchly
