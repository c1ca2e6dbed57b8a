#include "ClipboardGuard.h"

#include <QClipboard>
#include <QGuiApplication>

namespace perchly {

void ClipboardGuard::setField(QQuickItem *field) {
    m_field = field;
    if (field != nullptr) {
        QGuiApplication::clipboard()->disconnect(field);
    }
    Q_EMIT fieldChanged();
}

} // namespace perchly
