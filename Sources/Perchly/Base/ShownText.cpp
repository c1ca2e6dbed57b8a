#include "ShownText.h"

namespace perchly {

namespace {

/// More than three lines of the widest window.
constexpr qsizetype mostShownCharacters = 2000;

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

QString shownPart(const QString &text) {
    if (text.size() <= mostShownCharacters) {
        return text;
    }
    const bool splitsPair = text.at(mostShownCharacters - 1).isHighSurrogate();
    return text.left(splitsPair ? mostShownCharacters - 1 : mostShownCharacters);
}

} // namespace perchly
