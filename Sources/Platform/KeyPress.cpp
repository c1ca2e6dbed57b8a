#include "KeyPress.h"

#include <QKeySequence>

namespace perchly {

QString chordText(QKeyCombination chord) {
    return QKeySequence(chord).toString(QKeySequence::NativeText);
}

} // namespace perchly
