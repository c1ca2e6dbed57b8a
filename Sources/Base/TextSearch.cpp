#include "TextSearch.h"

#include <QLocale>

#include <algorithm>

namespace perchly {

namespace {

bool isAscii(const QString &text) {
    return std::ranges::all_of(text, [](QChar letter) { return letter.unicode() < 0x80; });
}

} // namespace

bool matchesSearch(const QString &text, const QString &search) {
    // Each key may search some hundred kilobytes, so try the fast comparison first.
    if (text.contains(search, Qt::CaseInsensitive)) {
        return true;
    }
    if (isAscii(text) && isAscii(search)) {
        return false;
    }
    const QLocale locale;
    const auto folded = [&locale](const QString &string) {
        return locale.toLower(string.normalized(QString::NormalizationForm_C));
    };
    return folded(text).contains(folded(search));
}

} // namespace perchly
