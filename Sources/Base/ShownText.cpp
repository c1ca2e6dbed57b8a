#include "ShownText.h"

#include <QCoreApplication>

#include <algorithm>

namespace perchly {

namespace {

/// More than three lines in the widest window.
constexpr qsizetype maxShownCharacters = 2000;

/// Direction marks, soft hyphens and the like, but not the joiners that scripts and emoji need.
bool isUnseenMark(QChar character) {
    return character.category() == QChar::Other_Format && character != QChar(0x200c) &&
           character != QChar(0x200d);
}

bool isBlank(QChar character) {
    return character.isSpace() || character.category() == QChar::Other_Control ||
           character.category() == QChar::Other_Format;
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
    text.removeIf(isUnseenMark);
    return text;
}

bool showsNothing(const QString &text) {
    return std::ranges::all_of(text, isBlank);
}

QString visibleName(const QString &name) {
    const QString visible = inOneLine(name).simplified();
    return showsNothing(visible) ? QString() : visible;
}

QString rowText(const QString &text) {
    if (showsNothing(text)) {
        return text.size() == 1
                   ? QCoreApplication::translate("ShownText", "Blank text, 1 character")
                   : QCoreApplication::translate("ShownText", "Blank text, %Ln characters", nullptr,
                                                 int(text.size()));
    }
    const auto isLineOfNothing = [&text](qsizetype start, qsizetype end) {
        return showsNothing(text.mid(start, end - start));
    };
    qsizetype start = 0;
    for (qsizetype end = text.indexOf(u'\n'); end >= 0 && isLineOfNothing(start, end);
         end = text.indexOf(u'\n', start)) {
        start = end + 1;
    }
    return shownPart(text.mid(start));
}

QString shownPart(const QString &text) {
    if (text.size() <= maxShownCharacters) {
        return text;
    }
    const bool splitsPair = text.at(maxShownCharacters - 1).isHighSurrogate();
    return text.left(splitsPair ? maxShownCharacters - 1 : maxShownCharacters);
}

} // namespace perchly
