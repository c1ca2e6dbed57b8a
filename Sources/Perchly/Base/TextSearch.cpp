#include "TextSearch.h"

#include <QLocale>

namespace perchly {

bool matchesSearch(const QString &text, const QString &search) {
    // Most texts that match do so plainly, and a few hundred kilobytes may have to be looked
    // through at each key.
    if (text.contains(search, Qt::CaseInsensitive)) {
        return true;
    }
    const QLocale locale;
    const auto folded = [&locale](const QString &string) {
        return locale.toLower(string.normalized(QString::NormalizationForm_C));
    };
    return folded(text).contains(folded(search));
}

QString foldedForSearch(const QString &text) {
    return QLocale().toLower(text.normalized(QString::NormalizationForm_C)).toCaseFolded();
}

} // namespace perchly
