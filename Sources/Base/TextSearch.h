#pragma once

#include <QString>

namespace perchly {

/// Whether the text contains the search. Ignores case, in the user's language, and how accents are
/// encoded. An empty search matches everything.
[[nodiscard]] bool matchesSearch(const QString &text, const QString &search);

} // namespace perchly
