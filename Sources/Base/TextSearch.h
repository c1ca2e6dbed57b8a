#pragma once

#include <QString>

#include <optional>

namespace perchly {

/// Whether the text contains the search. Ignores case, in the user's language, and how accents are
/// encoded. An empty search matches everything.
[[nodiscard]] bool matchesSearch(const QString &text, const QString &search);

/// The text in the form that matchRank() takes. Ignores case and how accents are encoded.
[[nodiscard]] QString foldedForSearch(const QString &text);

/// How well a search matches one of the lines, lowest first: the first line, the second, any other;
/// within each, the whole line, its start, the start of a word, anything else. Empty if it matches
/// no line. Both texts must be folded.
[[nodiscard]] std::optional<int> matchRank(const QString &lines, const QString &search);

} // namespace perchly
