#pragma once

#include <QString>

namespace perchly {

/// Replaces line breaks and other control characters by spaces, and removes direction marks, which
/// would reverse the text next to them.
[[nodiscard]] QString inOneLine(QString text);

/// Whether there is nothing to see in it.
[[nodiscard]] bool showsNothing(const QString &text);

/// The visible part of a name that another program gives itself, in one line; may be empty.
[[nodiscard]] QString visibleName(const QString &name);

/// The part of a text that fits into a row, from its first visible line on. Says so
/// if there is nothing to see.
[[nodiscard]] QString rowText(const QString &text);

/// As much of the start as a row can show in the widest window.
[[nodiscard]] QString shownPart(const QString &text);

} // namespace perchly
