#pragma once

#include <QFlags>
#include <qnamespace.h>
#include <QString>

namespace perchly {

/// The program's four modifiers, independent of the keyboard's labels.
enum class Modifier { Shift = 1, Control = 2, Option = 4, Command = 8 };
Q_DECLARE_FLAGS(Modifiers, Modifier)
Q_DECLARE_OPERATORS_FOR_FLAGS(Modifiers)

/// A key press.
struct KeyPress {
    Qt::Key key = Qt::Key_unknown;
    Modifiers modifiers;
    /// The key's characters without modifiers; empty for keys that type nothing.
    QString charactersIgnoringModifiers;
    /// Whether this is a key repeat.
    bool isRepeat = false;
};

/// A key and the exact modifiers to hold.
struct Chord {
    Qt::Key key = Qt::Key_unknown;
    Modifiers modifiers;

    bool operator==(const Chord &) const = default;
};

/// The chord in the user's language: "Ctrl+Alt+Space".
[[nodiscard]] QString chordText(const Chord &chord);

} // namespace perchly
