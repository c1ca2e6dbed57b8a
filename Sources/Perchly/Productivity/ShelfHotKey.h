#pragma once

#include <QObject>

namespace perchly {

class HotKeys;
class Productivity;
class ShellActions;

/// The two global chords: Control-Option-Space toggles the shelf in keyboard mode, Control-Option-K
/// opens search. They stay registered for the whole run.
class ShelfHotKey : public QObject {
    Q_OBJECT
public:
    /// The arguments must outlive this object.
    ShelfHotKey(HotKeys &hotKeys, ShellActions &shell, Productivity &productivity,
                QObject *parent = nullptr);

    /// Registers both chords. If one fails, the workspace shows a message; if both fail, only the
    /// toggle's. Call it once.
    void registerChords();

private:
    void perform(int identifier);

    HotKeys &m_hotKeys;
    ShellActions &m_shell;
    Productivity &m_productivity;
};

} // namespace perchly
