#pragma once

#include <QString>

namespace perchly {

/// Replaces line breaks and other control characters by spaces, and removes direction marks, which
/// would reverse the text next to them.
[[nodiscard]] QString inOneLine(QString text);

/// Whether the text has no visible characters.
[[nodiscard]] bool showsNothing(const QString &text);

/// The visible part of a name that another program reports, in one line; may be empty.
[[nodiscard]] QString visibleName(const QString &name);

/// The part of a text that fits into a row, starting with its first visible line. A placeholder if
/// nothing is visible.
[[nodiscard]] QString rowText(const QString &text);

/// As much of the text's start as fits into a row of the widest window.
[[nodiscard]] QString shownPart(const QString &text);

} // namespace perchly
