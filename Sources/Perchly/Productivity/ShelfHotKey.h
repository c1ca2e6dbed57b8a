#pragma once

#include <QKeyCombination>
#include <QObject>
#include <QString>

#include <array>

namespace perchly {

class HotKeys;
class Preferences;
class Productivity;
class ShellActions;
struct KeyPress;

/// The two global chords: one toggles the shelf in keyboard mode, the other opens search. The user
/// may change them. They stay registered for the whole run, except while a new one is recorded.
/// Main thread only.
class ShelfHotKey : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString toggleText READ toggleText NOTIFY changed FINAL)
    Q_PROPERTY(QString searchText READ searchText NOTIFY changed FINAL)
    Q_PROPERTY(QString toggleFailure READ toggleFailure NOTIFY changed FINAL)
    Q_PROPERTY(QString searchFailure READ searchFailure NOTIFY changed FINAL)
    Q_PROPERTY(bool isSupported READ isSupported NOTIFY changed FINAL)
    Q_PROPERTY(bool toggleIsDefault READ toggleIsDefault NOTIFY changed FINAL)
    Q_PROPERTY(bool searchIsDefault READ searchIsDefault NOTIFY changed FINAL)
public:
    enum Use { Toggle, Search };
    Q_ENUM(Use)

    /// The arguments must outlive this object.
    ShelfHotKey(HotKeys &hotKeys, Preferences &preferences, ShellActions &shell,
                Productivity &productivity, QObject *parent = nullptr);

    /// Registers both chords. Call it once. If one fails, then or later, the workspace shows a
    /// message unless it already shows one; if both fail, the toggle's. Where chords cannot be
    /// registered at all, it shows that at each start until a message has been dismissed.
    void registerChords();

    /// The chords as the user reads them.
    [[nodiscard]] QString toggleText() const { return text(Toggle); }
    [[nodiscard]] QString searchText() const { return text(Search); }
    /// Why the chord does not work; null if it does.
    [[nodiscard]] QString toggleFailure() const { return m_failures[Toggle]; }
    [[nodiscard]] QString searchFailure() const { return m_failures[Search]; }
    /// False where only the user can bind keys, in the desktop's settings.
    [[nodiscard]] bool isSupported() const;
    [[nodiscard]] bool toggleIsDefault() const { return isDefault(Toggle); }
    [[nodiscard]] bool searchIsDefault() const { return isDefault(Search); }

    /// Whether the press is the toggle's chord.
    [[nodiscard]] bool isToggle(const KeyPress &press) const;

    /// Registers chords again that another program may have released meanwhile. One that now works
    /// removes its message from the workspace.
    Q_INVOKABLE void retry();

    /// While recording, both chords are released and those of other programs ignored, so that the
    /// user can press any chord.
    [[nodiscard]] bool isRecording() const { return m_isRecording; }
    Q_INVOKABLE void setRecording(bool recording);

    /// Stores a chord of Qt::Key and Qt::KeyboardModifiers and registers it, at the end of the
    /// recording if there is one. Returns why it is refused, or null.
    Q_INVOKABLE QString change(perchly::ShelfHotKey::Use use, int key, int modifiers);
    /// The same with the default chord.
    Q_INVOKABLE QString reset(perchly::ShelfHotKey::Use use);

    /// The pressed keys as the user reads them, and whether they are more than modifiers.
    Q_INVOKABLE static QString pressedText(int key, int modifiers);
    Q_INVOKABLE static bool isComplete(int key);

Q_SIGNALS:
    void changed();

private:
    void perform(int use);
    [[nodiscard]] bool isHintNeeded() const;
    void rememberDismissal();
    [[nodiscard]] QKeyCombination chord(Use use) const;
    [[nodiscard]] QString text(Use use) const;
    [[nodiscard]] QString failureText(Use use) const;
    [[nodiscard]] bool isDefault(Use use) const;
    QString store(Use use, QKeyCombination chord);

    HotKeys &m_hotKeys;
    Preferences &m_preferences;
    ShellActions &m_shell;
    Productivity &m_productivity;
    std::array<QString, 2> m_failures;
    bool m_isRecording = false;
};

} // namespace perchly
