#pragma once

#include "KeyPress.h"

class QKeyEvent;

namespace perchly {

/// A key event in the program's own terms: Control is Ctrl, Option is Alt, Shift is Shift, and
/// Command is Super, and also Ctrl when Alt is not held, so that Ctrl+2 is both Control+2 and
/// Command+2. The digit row writes its digits in every layout, also where they need Shift.
[[nodiscard]] KeyPress keyPressFromQt(const QKeyEvent &event);

} // namespace perchly
