#pragma once

#include <QString>

namespace perchly {

/// With spaces for its line breaks and other control characters: a name may hold them, a row has no
/// room for them.
[[nodiscard]] QString inOneLine(QString text);

/// As much of the start as the few lines of a row can show in the widest window.
[[nodiscard]] QString shownPart(const QString &text);

} // namespace perchly
