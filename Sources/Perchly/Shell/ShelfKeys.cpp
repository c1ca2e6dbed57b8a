#include "ShelfKeys.h"

#include "KeyPress.h"
#include "PanelHost.h"
#include "ShelfHotKey.h"
#include "ShelfLibrary.h"
#include "ShelfModel.h"
#include "ShelfOpener.h"
#include "ShellActions.h"

namespace perchly {

ShelfKeys::ShelfKeys(PanelHost &panel, ShelfModel &model, const ShelfLibrary &library,
                     ShelfOpener &opener, const ShelfHotKey &hotKey, ShellActions &shell)
    : m_panel(panel)
    , m_model(model)
    , m_library(library)
    , m_opener(opener)
    , m_hotKey(hotKey)
    , m_shell(shell) {}

bool ShelfKeys::handle(const KeyPress &press) {
    if (m_hotKey.isRecording()) {
        return false;
    }
    if (m_hotKey.isToggle(press)) {
        if (!press.isRepeat) {
            m_opener.toggleKeyboardOpen();
        }
        return true;
    }
    if (m_panel.hasKeyboard() && !m_model.dragging()) {
        if (press.key == Qt::Key_Escape) {
            return handleEscape(press);
        }
        if (press.modifiers.testFlag(Modifier::Command) && m_model.controlError().isEmpty() &&
            launchShown(press)) {
            return true;
        }
    }
    return handleMenuKey(press);
}

bool ShelfKeys::handleMenuKey(const KeyPress &press) {
    if (!press.modifiers.testFlag(Modifier::Command) ||
        (press.modifiers & (Modifier::Shift | Modifier::Option))) {
        return false;
    }
    if (press.key == Qt::Key_Comma) {
        m_shell.showSettings();
    } else if (press.key == Qt::Key_Q) {
        m_shell.terminate();
    }
    return press.key == Qt::Key_Comma || press.key == Qt::Key_Q;
}

bool ShelfKeys::handleEscape(const KeyPress &press) {
    if (press.isRepeat) {
        return true; // one press closes only one thing
    }
    if (!m_model.controlError().isEmpty()) {
        m_model.clearControlError();
    } else if (m_model.choosingWidget()) {
        return false; // the chooser closes itself
    } else {
        m_opener.setKeyboardOpen(false);
    }
    return true;
}

bool ShelfKeys::launchShown(const KeyPress &press) {
    const int position = press.charactersIgnoringModifiers.toInt();
    const QList<ShelfItem> shown = m_library.shown();
    if (position < 1 || position > shown.size()) {
        return false;
    }
    if (!press.isRepeat) { // a held key would launch dozens
        m_shell.launch(shown.at(position - 1).id);
    }
    return true;
}

} // namespace perchly
