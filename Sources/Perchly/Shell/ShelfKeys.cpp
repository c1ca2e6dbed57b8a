// Which keys the shelf takes.

#include "AppDelegate.h"
#include "Hosts.h"

#include <QPointer>

#include <algorithm>

namespace perchly {

bool AppDelegate::handleKey(const KeyPress &press) {
    if (handleShelfKey(press)) {
        return true;
    }
    // The status menu's own keys, in any of the program's windows.
    const bool command = press.modifiers.testFlag(Modifier::Command) &&
                         !(press.modifiers & (Modifier::Shift | Modifier::Option));
    if (command && press.key == Qt::Key_Comma) {
        showSettings();
        return true;
    }
    if (command && press.key == Qt::Key_Q) {
        terminate();
        return true;
    }
    return false;
}

bool AppDelegate::handleShelfKey(const KeyPress &press) {
    if (press.key == Qt::Key_Space && press.modifiers == (Modifier::Control | Modifier::Option)) {
        if (!press.isRepeat) {
            toggleKeyboardOpen();
        }
        return true;
    }
    if (!m_hosts.panel->hasKeyboard()) {
        return false;
    }
    if (press.key == Qt::Key_Escape && press.isRepeat) {
        return true; // one press closes one thing
    }
    if (!m_model.controlError().isEmpty() && press.key == Qt::Key_Escape) {
        m_model.clearControlError();
        return true;
    }
    if (press.key == Qt::Key_Escape) {
        if (m_model.choosingWidget()) {
            return false; // closes the chooser alone
        }
        setKeyboardOpen(false);
        return true;
    }
    return press.modifiers.testFlag(Modifier::Command) && m_model.controlError().isEmpty() &&
           launchShown(press);
}

bool AppDelegate::launchShown(const KeyPress &press) {
    bool valid = false;
    const qsizetype position = press.charactersIgnoringModifiers.toInt(&valid);
    const QList<ShelfItem> shown = m_library.shown();
    if (!valid || position < 1 || position > shown.size()) {
        return false;
    }
    if (!press.isRepeat) { // or a key that is held starts dozens
        launch(shown.at(position - 1));
    }
    return true;
}

void AppDelegate::launch(const ShelfItem &item) {
    if (item.shortcutName) {
        m_productivity.runShortcut(*item.shortcutName);
    } else if (item.path) {
        m_hosts.applications->launch(*item.path, [store = QPointer(&m_productivity),
                                                  name = item.name](const QString &error) {
            if (store && !error.isEmpty()) {
                store->setMessage(QStringLiteral("Could not open %1. %2").arg(name, error));
            }
        });
    }
}

void AppDelegate::launch(const QString &id) {
    const QList<ShelfItem> &items = m_library.items();
    const auto item = std::ranges::find(items, id, &ShelfItem::id);
    if (item != items.cend()) {
        launch(*item);
    }
}

} // namespace perchly
