#include "KeyPress.h"

#include <QKeySequence>

namespace perchly {

QString chordText(const Chord &chord) {
    Qt::KeyboardModifiers modifiers;
    modifiers.setFlag(Qt::ControlModifier, chord.modifiers.testFlag(Modifier::Control));
    modifiers.setFlag(Qt::AltModifier, chord.modifiers.testFlag(Modifier::Option));
    modifiers.setFlag(Qt::ShiftModifier, chord.modifiers.testFlag(Modifier::Shift));
    modifiers.setFlag(Qt::MetaModifier, chord.modifiers.testFlag(Modifier::Command));
    return QKeySequence(QKeyCombination(modifiers, chord.key)).toString(QKeySequence::NativeText);
}

} // namespace perchly
