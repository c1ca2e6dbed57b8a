#include "TextSearch.h"

#include <QLocale>

#include <algorithm>

namespace perchly {

namespace {

bool isAscii(const QString &text) {
    return std::ranges::all_of(text, [](QChar letter) { return letter.unicode() < 0x80; });
}

QString folded(const QString &text) {
    return QLocale().toLower(text.normalized(QString::NormalizationForm_C));
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
    return folded(text).contains(folded(search));
}

QString foldedForSearch(const QString &text) {
    return isAscii(text) ? text.toLower() : folded(text); // much faster
}

std::optional<int> matchRank(const QString &lines, const QString &search) {
    std::optional<int> best;
    const qsizetype firstEnd = lines.indexOf(u'\n');
    const qsizetype secondEnd = firstEnd < 0 ? -1 : lines.indexOf(u'\n', firstEnd + 1);
    for (qsizetype at = lines.indexOf(search); at >= 0; at = lines.indexOf(search, at + 1)) {
        const qsizetype end = at + search.size();
        const QChar before = at > 0 ? lines.at(at - 1) : QChar(u'\n');
        const QChar after = end < lines.size() ? lines.at(end) : QChar(u'\n');
        const int quality = before != u'\n'  ? (before.isLetterOrNumber() ? 3 : 2)
                            : after != u'\n' ? 1
                                             : 0;
        const bool isAfterFirst = firstEnd >= 0 && at > firstEnd;
        const bool isAfterSecond = secondEnd >= 0 && at > secondEnd;
        const int rank = 4 * (int(isAfterFirst) + int(isAfterSecond)) + quality;
        best = std::min(best.value_or(rank), rank);
    }
    return best;
}

} // namespace perchly
