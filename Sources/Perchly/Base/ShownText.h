#pragma once

#include <QString>

namespace perchly {

/// With spaces for its line breaks and other control characters, and without marks of direction: a
/// name may hold them, but a row has no room for the first, and the others turn around what stands
/// beside them.
[[nodiscard]] QString inOneLine(QString text);

/// Whether there is nothing to see in it.
[[nodiscard]] bool showsNothing(const QString &text);

/// What can be seen of a name that another program gives itself: in one line, and empty when
/// nothing is to be seen.
[[nodiscard]] QString visibleName(const QString &name);

/// What a row shows of a text: from its first line on that can be seen, as far as a row has room.
/// Says so when there is nothing to see in it.
[[nodiscard]] QString rowText(const QString &text);

/// As much of the start as the few lines of a row can show in the widest window.
[[nodiscard]] QString shownPart(const QString &text);

} // namespace perchly
