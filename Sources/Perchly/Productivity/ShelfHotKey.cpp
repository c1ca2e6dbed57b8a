#include "ShelfHotKey.h"

#include "HotKeys.h"
#include "Productivity.h"
#include "ShelfPreferences.h"
#include "ShellActions.h"

namespace perchly {

namespace {

constexpr int toggleIdentifier = 1;
constexpr int searchIdentifier = 2;

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

    const bool toggle = m_hotKeys.registerChord(toggleIdentifier, ShelfPreferences::toggleChord);
    const bool search = m_hotKeys.registerChord(searchIdentifier, ShelfPreferences::searchChord);
    if (!search) {
        m_productivity.setMessage(
            tr("Could not register %1 for search.").arg(chordText(ShelfPreferences::searchChord)));
    }
    if (!toggle) {
        m_productivity.setMessage(tr("Could not register %1. Another app may use that shortcut.")
                                      .arg(chordText(ShelfPreferences::toggleChord)));
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
