#pragma once

#include <QObject>

class KeysTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void togglesOnExactlyControlOptionSpace_data();
    void togglesOnExactlyControlOptionSpace();
    void takesAndGivesBackTheKeyboard();
    void turnsAHoverOpenShelfIntoAKeyboardOpenOne();
    void passesKeysOnWithoutTheKeyboard();
    void escapeCloses();
    void escapeClosesAnOpenChooserFirst();
    void aBorrowedKeyboardGoesBackWithTheShelf_data();
    void aBorrowedKeyboardGoesBackWithTheShelf();
    void keyboardModeKeepsABorrowedKeyboard();
    void launchesTheShownEntryOfADigit_data();
    void launchesTheShownEntryOfADigit();
    void answersTheMenusKeysInEveryWindow();
    void hotKeysActOnceTheHostsHandlingIsOver();
};
