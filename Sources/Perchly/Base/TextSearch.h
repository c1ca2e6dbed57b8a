#pragma once

#include <QString>

namespace perchly {

/// Whether the text contains what was searched for, letters of either case being the same in the
/// person's language, and accents however they are encoded. Everything matches an empty search.
[[nodiscard]] bool matchesSearch(const QString &text, const QString &search);

} // namespace perchly
