#pragma once

#include "Productivity.h"
#include "ShelfHotKey.h"

#include <QtQml/qqml.h>

namespace perchly {

struct SavedLayoutsForeign {
    Q_GADGET
    QML_FOREIGN(perchly::SavedLayouts)
    QML_ANONYMOUS
};

struct ShortcutsForeign {
    Q_GADGET
    QML_FOREIGN(perchly::Shortcuts)
    QML_ANONYMOUS
};

struct ClipboardHistoryForeign {
    Q_GADGET
    QML_FOREIGN(perchly::ClipboardHistory)
    QML_NAMED_ELEMENT(ClipboardHistory)
    QML_UNCREATABLE("Given to the views by the shell.")
};

struct HeldFilesForeign {
    Q_GADGET
    QML_FOREIGN(perchly::HeldFiles)
    QML_NAMED_ELEMENT(HeldFiles)
    QML_UNCREATABLE("Given to the views by the shell.")
};

struct ShelfHotKeyForeign {
    Q_GADGET
    QML_FOREIGN(perchly::ShelfHotKey)
    QML_NAMED_ELEMENT(ShelfHotKey)
    QML_UNCREATABLE("Given to the views by the shell.")
};

struct ProductivityForeign {
    Q_GADGET
    QML_FOREIGN(perchly::Productivity)
    QML_NAMED_ELEMENT(Productivity)
    QML_UNCREATABLE("Given to the views by the shell.")
};

} // namespace perchly
