#include "TextSearch.h"

#include <QLocale>

namespace perchly {

bool matchesSearch(const QString &text, const QString &search) {
    if (text.contains(search, Qt::CaseInsensitive)) {
        return true; // fast, as some hundred kilobytes may be searched at each key
    }
    const QLocale locale;
    const auto folded = [&locale](const QString &string) {
        return locale.toLower(string.normalized(QString::NormalizationForm_C));
    };
    return folded(text).contains(folded(search));
}

} // namespace perchly
