#pragma once

#include <QFlags>
#include <QKeyCombination>
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

/// Control is Ctrl, Option is Alt, Shift is Shift, and Command is Super, or Ctrl without Alt.
[[nodiscard]] inline Modifiers modifiersFromQt(Qt::KeyboardModifiers held) {
    Modifiers modifiers;
    modifiers.setFlag(Modifier::Shift, held.testFlag(Qt::ShiftModifier));
    modifiers.setFlag(Modifier::Control, held.testFlag(Qt::ControlModifier));
    modifiers.setFlag(Modifier::Option, held.testFlag(Qt::AltModifier));
    const bool isControlAlone =
        held.testFlag(Qt::ControlModifier) && !held.testFlag(Qt::AltModifier);
    modifiers.setFlag(Modifier::Command, held.testFlag(Qt::MetaModifier) || isControlAlone);
    return modifiers;
}

/// The chord in the user's language: "Ctrl+Alt+Space".
[[nodiscard]] QString chordText(QKeyCombination chord);

} // namespace perchly
