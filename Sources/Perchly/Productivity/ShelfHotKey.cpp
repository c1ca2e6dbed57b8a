#include "ShelfHotKey.h"

#include "HotKeys.h"
#include "Productivity.h"
#include "ShellActions.h"

namespace perchly {

namespace {

constexpr int toggleIdentifier = 1;
constexpr int searchIdentifier = 2;
constexpr Modifiers controlOption = Modifier::Control | Modifier::Option;

} // namespace

ShelfHotKey::ShelfHotKey(HotKeys &hotKeys, ShellActions &shell, Productivity &productivity,
                         QObject *parent)
    : QObject(parent)
    , m_hotKeys(hotKeys)
    , m_shell(shell)
    , m_productivity(productivity) {}

void ShelfHotKey::registerChords() {
    // Queued: the action must not run inside the host's event handler.
    connect(&m_hotKeys, &HotKeys::pressed, this, &ShelfHotKey::perform, Qt::QueuedConnection);

    const bool toggle = m_hotKeys.registerChord(toggleIdentifier, {Qt::Key_Space, controlOption});
    const bool search = m_hotKeys.registerChord(searchIdentifier, {Qt::Key_K, controlOption});
    if (!search) {
        m_productivity.setMessage(QStringLiteral("Could not register ⌃⌥K for search."));
    }
    if (!toggle) {
        m_productivity.setMessage(
            QStringLiteral("Could not register ⌃⌥Space. Another app may use that shortcut."));
    }
}

void ShelfHotKey::perform(int identifier) {
    if (identifier == searchIdentifier) {
        m_shell.showSearch();
    } else {
        m_shell.toggleKeyboardOpen();
    }
}

} // namespace perchly
