#include "ShelfHotKey.h"

#include "HotKeys.h"
#include "KeyPress.h"
#include "PreferenceKeys.h"
#include "Preferences.h"
#include "Productivity.h"
#include "ShellActions.h"

#include <QKeySequence>

#include <utility>

namespace perchly {

namespace {

struct StoredChord {
    QLatin1StringView key;
    QKeyCombination fallback;
};

constexpr std::array storedChords{
    StoredChord{keys::toggleChord, Qt::CTRL | Qt::ALT | Qt::Key_Space},
    StoredChord{keys::searchChord, Qt::CTRL | Qt::ALT | Qt::Key_K}};

constexpr auto allUses = {ShelfHotKey::Toggle, ShelfHotKey::Search};
constexpr Qt::KeyboardModifiers mainModifiers =
    Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

QKeyCombination chordOf(int key, int modifiers) {
    return QKeyCombination(Qt::KeyboardModifiers(modifiers) & (mainModifiers | Qt::ShiftModifier),
                           Qt::Key(key));
}

} // namespace

ShelfHotKey::ShelfHotKey(HotKeys &hotKeys, Preferences &preferences, ShellActions &shell,
                         Productivity &productivity, QObject *parent)
    : QObject(parent)
    , m_hotKeys(hotKeys)
    , m_preferences(preferences)
    , m_shell(shell)
    , m_productivity(productivity) {}

void ShelfHotKey::registerChords() {
    // Queued: the action must not run inside the host's event handler.
    connect(&m_hotKeys, &HotKeys::pressed, this, &ShelfHotKey::perform, Qt::QueuedConnection);
    connect(&m_hotKeys, &HotKeys::keyboardChanged, this, &ShelfHotKey::retry);
    connect(&m_productivity, &Productivity::messageChanged, this, &ShelfHotKey::rememberDismissal);
    retry();
}

bool ShelfHotKey::isSupported() const {
    return m_hotKeys.isSupported();
}

bool ShelfHotKey::isHintNeeded() const {
    return !m_preferences.boolean(keys::knowsToBindKeys).value_or(false);
}

void ShelfHotKey::rememberDismissal() {
    if (!isSupported() && m_productivity.message().isEmpty() && isHintNeeded()) {
        m_preferences.setBoolean(keys::knowsToBindKeys, true);
    }
}

void ShelfHotKey::perform(int use) {
    if (use == Search) {
        m_shell.showSearch();
    } else {
        m_shell.toggleKeyboardOpen();
    }
}

void ShelfHotKey::retry() {
    if (m_isRecording) {
        return;
    }
    for (const Use use : allUses) {
        const bool works = m_hotKeys.registerChord(use, chord(use));
        const QString now = works ? QString() : failureText(use);
        // Replaces the chord's own message, or none.
        const QString before = std::exchange(m_failures[use], now);
        if (before != now && m_productivity.message() == before &&
            (isSupported() || isHintNeeded())) {
            m_productivity.setMessage(now);
        }
    }
    Q_EMIT changed();
}

bool ShelfHotKey::isToggle(const KeyPress &press) const {
    const QKeyCombination toggle = chord(Toggle);
    return press.key == toggle.key() &&
           press.modifiers == modifiersFromQt(toggle.keyboardModifiers());
}

void ShelfHotKey::setRecording(bool recording) {
    m_isRecording = recording;
    m_hotKeys.setKeyboardGrabbed(recording);
    if (!recording) {
        retry();
        return;
    }
    for (const Use use : allUses) {
        m_hotKeys.releaseChord(use);
    }
}

QString ShelfHotKey::change(Use use, int key, int modifiers) {
    const QKeyCombination chord = chordOf(key, modifiers);
    return chord.keyboardModifiers() & mainModifiers ? store(use, chord)
                                                     : tr("Hold Ctrl, Alt or Super as well.");
}

QString ShelfHotKey::reset(Use use) {
    return store(use, storedChords[use].fallback);
}

QString ShelfHotKey::store(Use use, QKeyCombination chord) {
    const Use other = use == Toggle ? Search : Toggle;
    if (chord == this->chord(other)) {
        return (other == Search ? tr("%1 already opens search.")
                                : tr("%1 already toggles the shelf."))
            .arg(text(other));
    }
    if (chord == storedChords[use].fallback) {
        m_preferences.removeValue(storedChords[use].key);
    } else {
        m_preferences.setString(storedChords[use].key,
                                QKeySequence(chord).toString(QKeySequence::PortableText));
    }
    retry();
    return {};
}

QString ShelfHotKey::pressedText(int key, int modifiers) {
    return chordText(chordOf(isComplete(key) ? key : 0, modifiers));
}

bool ShelfHotKey::isComplete(int key) {
    const bool isModifier = (key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock) ||
                            (key >= Qt::Key_Super_L && key <= Qt::Key_Hyper_R) ||
                            key == Qt::Key_AltGr || key == Qt::Key_Mode_switch;
    return key != 0 && key != Qt::Key_unknown && !isModifier;
}

QKeyCombination ShelfHotKey::chord(Use use) const {
    const auto [key, fallback] = storedChords[use];
    const QKeySequence stored = QKeySequence::fromString(
        m_preferences.string(key).value_or(QString()), QKeySequence::PortableText);
    const bool isUsable = stored.count() == 1 && isComplete(stored[0].key()) &&
                          (stored[0].keyboardModifiers() & mainModifiers);
    return isUsable ? stored[0] : fallback;
}

QString ShelfHotKey::text(Use use) const {
    return chordText(chord(use));
}

QString ShelfHotKey::failureText(Use use) const {
    if (!isSupported()) {
        return tr("Perchly cannot register keys here. Bind one to “%1” in the settings of your "
                  "desktop.")
            .arg(use == Search ? QStringLiteral("perchly search")
                               : QStringLiteral("perchly toggle"));
    }
    return (use == Search ? tr("Could not register %1 for search.")
                          : tr("Could not register %1. Another app may use that shortcut."))
        .arg(text(use));
}

bool ShelfHotKey::isDefault(Use use) const {
    return chord(use) == storedChords[use].fallback;
}

} // namespace perchly
