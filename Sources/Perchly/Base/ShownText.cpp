#include "ShownText.h"

#include <algorithm>

namespace perchly {

namespace {

/// More than three lines of the widest window.
constexpr qsizetype mostShownCharacters = 2000;

bool isHiddenMark(QChar character) {
    const char16_t code = character.unicode();
    const bool turns = code == 0x061C || code == 0x200E || code == 0x200F ||
                       (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
    return turns || code == 0x00AD || code == 0x200B || code == 0x2060 || code == 0xFEFF;
}

bool isJoiner(QChar character) {
    return character.unicode() == 0x200C || character.unicode() == 0x200D;
}

} // namespace

QString inOneLine(QString text) {
    for (QChar &character : text) {
        if (character.category() == QChar::Other_Control ||
            character.category() == QChar::Separator_Line ||
            character.category() == QChar::Separator_Paragraph) {
            character = u' ';
        }
    }
    return text;
}

QString visibleName(const QString &name) {
    QString visible = inOneLine(name);
    visible.removeIf(isHiddenMark);
    visible = visible.simplified();
    return std::all_of(visible.cbegin(), visible.cend(), isJoiner) ? QString() : visible;
}

QString shownPart(const QString &text) {
    if (text.size() <= mostShownCharacters) {
        return text;
    }
    const bool splitsPair = text.at(mostShownCharacters - 1).isHighSurrogate();
    return text.left(splitsPair ? mostShownCharacters - 1 : mostShownCharacters);
}

} // namespace perchly
