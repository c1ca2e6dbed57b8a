#pragma once

#include <QString>

namespace perchly {

/// Whether the text contains the search, ignoring case in the user's language and how accents are
/// encoded. Everything matches an empty search.
[[nodiscard]] bool matchesSearch(const QString &text, const QString &search);

} // namespace perchly
