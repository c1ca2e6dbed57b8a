#include "KeysTest.h"

#include "ShellFixture.h"

#include <QSignalSpy>
#include <QTest>

using namespace perchly;

namespace {

constexpr Modifiers controlOption = Modifier::Control | Modifier::Option;

} // namespace

void KeysTest::togglesOnExactlyControlOptionSpace_data() {
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<bool>("toggles");
    const auto row = [](const char *name, Modifiers modifiers, bool toggles) {
        QTest::newRow(name) << int(modifiers) << toggles;
    };
    row("Control and Option", controlOption, true);
    row("with Shift held too", controlOption | Modifier::Shift, false);
    row("with Command held too", controlOption | Modifier::Command, false);
    row("Control alone", Modifier::Control, false);
    row("no modifier", {}, false);
}

void KeysTest::togglesOnExactlyControlOptionSpace() {
    QFETCH(int, modifiers);
    QFETCH(bool, toggles);
    ShellFixture shell;
    QCOMPARE(shell.fake.keys.press(Qt::Key_Space, Modifiers(modifiers), QStringLiteral(" ")),
             toggles);
    QCOMPARE(shell.delegate->keyboardOpen(), toggles);
}

void KeysTest::takesAndGivesBackTheKeyboard() {
    ShellFixture shell;
    shell.delegate->toggleKeyboardOpen();
    QVERIFY(shell.fake.panel.keyboard);
    QVERIFY(shell.expanded());
    shell.delegate->toggleKeyboardOpen();
    QVERIFY(!shell.fake.panel.keyboard);
    QVERIFY(!shell.expanded());
}

void KeysTest::turnsAHoverOpenShelfIntoAKeyboardOpenOne() {
    ShellFixture shell;
    shell.pointerOntoPill();
    QVERIFY2(!shell.fake.panel.keyboard, "hovering must not take the keyboard");
    const int placements = shell.fake.panel.placements;
    shell.delegate->toggleKeyboardOpen();
    QVERIFY(shell.expanded());
    QVERIFY(shell.fake.panel.keyboard);
    QCOMPARE(shell.fake.panel.placements, placements);
}

void KeysTest::passesKeysOnWithoutTheKeyboard() {
    ShellFixture shell;
    shell.pointerOntoPill();
    QVERIFY(!shell.fake.keys.press(Qt::Key_Escape));
    QVERIFY(!shell.fake.keys.press(Qt::Key_1, Modifier::Command, QStringLiteral("1")));
    QVERIFY(shell.expanded());
}

void KeysTest::escapeCloses() {
    ShellFixture shell;
    shell.delegate->toggleKeyboardOpen();
    QVERIFY(shell.fake.keys.press(Qt::Key_Escape));
    QVERIFY(!shell.expanded());
    QVERIFY(!shell.delegate->keyboardOpen());
    QVERIFY(!shell.fake.panel.keyboard);
}

void KeysTest::escapeClosesAnOpenChooserFirst() {
    ShellFixture shell;
    shell.delegate->toggleKeyboardOpen();
    shell.delegate->model().setChoosingWidget(true);
    QVERIFY2(!shell.fake.keys.press(Qt::Key_Escape), "the chooser's own key");
    QVERIFY(shell.expanded());
    shell.delegate->model().setChoosingWidget(false);
    QVERIFY(shell.fake.keys.press(Qt::Key_Escape));
    QVERIFY(!shell.expanded());
}

void KeysTest::aBorrowedKeyboardGoesBackWithTheShelf_data() {
    using End = std::function<void(ShellFixture &)>;
    QTest::addColumn<End>("end");
    QTest::addColumn<bool>("keyboardAfter");
    QTest::newRow("when it is returned")
        << End([](ShellFixture &shell) { shell.delegate->returnKeyboard(); }) << false;
    QTest::newRow("when the pointer leaves") << End([](ShellFixture &shell) {
        shell.pointerAway();
        shell.fake.clock.advance(std::chrono::milliseconds(350));
    }) << false;
    QTest::newRow("when Escape closes the shelf")
        << End([](ShellFixture &shell) { QVERIFY(shell.fake.keys.press(Qt::Key_Escape)); })
        << false;
    QTest::newRow("when the shelf is dragged away") << End([](ShellFixture &shell) {
        shell.delegate->beginShelfDrag({720, 890});
    }) << false;
    QTest::newRow("not when a window takes it from the shelf")
        << End([](ShellFixture &shell) { shell.delegate->showTools(); }) << true;
}

void KeysTest::aBorrowedKeyboardGoesBackWithTheShelf() {
    QFETCH(std::function<void(ShellFixture &)>, end);
    ShellFixture shell;
    QVERIFY2(!shell.delegate->takeKeyboard(), "the collapsed shelf has no use for it");
    shell.pointerOntoPill();
    QVERIFY(shell.delegate->takeKeyboard());
    QVERIFY2(!shell.delegate->takeKeyboard(), "it has it already");
    QVERIFY(shell.fake.panel.keyboard);
    QVERIFY(!shell.delegate->keyboardOpen());
    end(shell);
    QTEST(shell.fake.panel.keyboard, "keyboardAfter");
}

void KeysTest::keyboardModeKeepsABorrowedKeyboard() {
    ShellFixture shell;
    shell.pointerOntoPill();
    QVERIFY(shell.delegate->takeKeyboard());
    shell.delegate->toggleKeyboardOpen();
    shell.delegate->returnKeyboard();
    QVERIFY(shell.fake.panel.keyboard);
    shell.delegate->toggleKeyboardOpen();
    QVERIFY(!shell.fake.panel.keyboard);
}

void KeysTest::launchesTheShownEntryOfADigit_data() {
    QTest::addColumn<QString>("characters");
    QTest::addColumn<bool>("consumed");
    QTest::addColumn<QStringList>("opened");
    const QStringList none;
    QTest::newRow("an application is opened")
        << QStringLiteral("1") << true << QStringList{QStringLiteral("/apps/one.desktop")};
    QTest::newRow("a widget is used up and does nothing") << QStringLiteral("2") << true << none;
    QTest::newRow("hidden entries are not counted")
        << QStringLiteral("3") << true << QStringList{QStringLiteral("/apps/three.desktop")};
    QTest::newRow("beyond the last is passed on") << QStringLiteral("4") << false << none;
    QTest::newRow("zero is passed on") << QStringLiteral("0") << false << none;
    QTest::newRow("a letter is passed on") << QStringLiteral("a") << false << none;
    QTest::newRow("a key that writes nothing is passed on") << QString() << false << none;
}

void KeysTest::launchesTheShownEntryOfADigit() {
    QFETCH(QString, characters);
    QFETCH(bool, consumed);
    QFETCH(QStringList, opened);
    ShellFixture shell;
    ShelfItem hidden =
        ShelfItem::forApplication(QStringLiteral("/apps/hidden.desktop"), QStringLiteral("Hidden"));
    hidden.visible = false;
    shell.delegate->library().setItems(
        {ShelfItem::forApplication(QStringLiteral("/apps/one.desktop"), QStringLiteral("One")),
         hidden, ShelfItem::forWidget(Widget::Clock),
         ShelfItem::forApplication(QStringLiteral("/apps/three.desktop"),
                                   QStringLiteral("Three"))});
    shell.delegate->toggleKeyboardOpen();
    QCOMPARE(
        shell.fake.keys.press(Qt::Key_unknown, Modifier::Command | Modifier::Control, characters),
        consumed);
    QCOMPARE(shell.fake.applications.opened, opened);
    QVERIFY2(shell.expanded(), "launching must leave the shelf open");
}

void KeysTest::answersTheMenusKeysInEveryWindow() {
    ShellFixture shell;
    QVERIFY(shell.fake.keys.press(Qt::Key_Comma, Modifier::Command, QStringLiteral(",")));
    QVERIFY(shell.delegate->settingsWindow() != nullptr);
    QVERIFY(!shell.fake.keys.press(Qt::Key_Comma, {}, QStringLiteral(",")));
    QVERIFY2(!shell.fake.keys.press(Qt::Key_Q, Modifier::Command | Modifier::Shift),
             "another program's chord must not quit this one");
}

void KeysTest::hotKeysActOnceTheHostsHandlingIsOver() {
    ShellFixture shell;
    Q_EMIT shell.fake.hotKeys.pressed(1);
    QVERIFY(!shell.expanded());
    QCoreApplication::processEvents();
    QVERIFY(shell.delegate->keyboardOpen());

    Q_EMIT shell.fake.hotKeys.pressed(2);
    QCoreApplication::processEvents();
    QVERIFY(!shell.expanded());
    QVERIFY(!shell.delegate->keyboardOpen());
    QCOMPARE(shell.fake.panel.activated, {shell.delegate->toolsWindow()});
    QCOMPARE(shell.delegate->extras().section(), QStringLiteral("Search"));
}
