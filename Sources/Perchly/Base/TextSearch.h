#pragma once

#include <QString>

namespace perchly {

/// Whether the text contains what was searched for, letters of either case being the same in the
/// person's language, and accents however they are encoded. Everything matches an empty search.
[[nodiscard]] bool matchesSearch(const QString &text, const QString &search);

/// For searching many texts again and again: a text matches when its folded form contains that of
/// what was searched for.
[[nodiscard]] QString foldedForSearch(const QString &text);

} // namespace perchly
