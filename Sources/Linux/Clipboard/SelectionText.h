#pragma once

#include <QString>

namespace perchly {

enum class SelectionEncoding { Utf8, Latin1, Unknown };

/// What an owner gave as text. Unknown is UTF-8 where that is possible, else Latin-1.
[[nodiscard]] QString selectionText(const QByteArray &bytes, SelectionEncoding encoding);

/// Whether the text takes at most that many bytes of UTF-8.
[[nodiscard]] bool fitsInUtf8(const QString &text, qsizetype longest);

} // namespace perchly
