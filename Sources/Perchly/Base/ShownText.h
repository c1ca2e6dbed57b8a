#pragma once

#include <QString>

namespace perchly {

/// With spaces for its line breaks and other control characters: a name may hold them, a row has no
/// room for them.
[[nodiscard]] QString inOneLine(QString text);

/// What can be seen of a name that another program gives itself: in one line, without marks that
/// turn its neighbours round and without what has no width, but with the joiners of scripts and
/// emoji. Empty when nothing is to be seen.
[[nodiscard]] QString visibleName(const QString &name);

/// As much of the start as the few lines of a row can show in the widest window.
[[nodiscard]] QString shownPart(const QString &text);

} // namespace perchly
