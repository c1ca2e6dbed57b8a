#include "ShellFixture.h"
#include "TestRegistry.h"

#include <QTest>

using namespace perchly;

namespace {

constexpr Modifiers controlOption = Modifier::Control | Modifier::Option;

} // namespace

class KeysTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void togglesOnExactlyControlOptionSpace() {
        ShellFixture shell;
        QVERIFY(!shell.fake.keys.press(Qt::Key_Space));
        QVERIFY(!shell.fake.keys.press(Qt::Key_Space, controlOption | Modifier::Shift));
        QVERIFY(!shell.expanded());
        QVERIFY(shell.fake.keys.press(Qt::Key_Space, controlOption));
        QVERIFY(shell.delegate->opener().isKeyboardOpen());
        QVERIFY(shell.fake.keys.press(Qt::Key_Space, controlOption, {}, true));
        QVERIFY2(shell.delegate->opener().isKeyboardOpen(), "a held key toggles once");
    }

    void escapeClosesAnOpenChooserFirst() {
        ShellFixture shell;
        shell.delegate->toggleKeyboardOpen();
        shell.delegate->model().setChoosingWidget(true);
        QVERIFY2(!shell.fake.keys.press(Qt::Key_Escape), "the chooser's own key");
        QVERIFY(shell.expanded());
        shell.delegate->model().setChoosingWidget(false);
        QVERIFY(shell.fake.keys.press(Qt::Key_Escape));
        QVERIFY(!shell.expanded());
    }

    void borrowedKeyboardGoesBackWithTheShelf() {
        ShellFixture shell;
        const auto borrows = [&shell] {
            shell.pointerOntoPill();
            return shell.delegate->takeKeyboard() && shell.fake.panel.keyboard &&
                   !shell.delegate->opener().isKeyboardOpen();
        };
        QVERIFY2(!shell.delegate->takeKeyboard(), "the collapsed shelf does not need it");
        QVERIFY(borrows());
        QVERIFY2(!shell.delegate->takeKeyboard(), "it has it already");
        shell.delegate->returnKeyboard();
        QVERIFY(!shell.fake.panel.keyboard);

        QVERIFY(borrows());
        shell.pointerAway();
        shell.fake.clock.advance(std::chrono::milliseconds(350));
        QVERIFY(!shell.fake.panel.keyboard);

        QVERIFY(borrows());
        shell.delegate->toggleKeyboardOpen();
        shell.delegate->returnKeyboard();
        QVERIFY2(shell.fake.panel.keyboard, "keyboard mode keeps it");
        shell.delegate->toggleKeyboardOpen();

        QVERIFY(borrows());
        shell.delegate->showTools();
        QVERIFY2(shell.fake.panel.keyboard, "the window takes it from the shelf");
    }

    void launchesTheShownEntryOfADigit() {
        ShellFixture shell;
        const auto application = [](const QString &name) {
            return ShelfItem::forApplication(QStringLiteral("/apps/") + name, name);
        };
        ShelfItem hidden = application(QStringLiteral("hidden"));
        hidden.visible = false;
        shell.delegate->library().setItems({application(QStringLiteral("one")), hidden,
                                            ShelfItem::forWidget(Widget::Clock),
                                            application(QStringLiteral("three"))});
        shell.pointerOntoPill();
        const auto press = [&](char16_t character, bool isRepeat = false) {
            return shell.fake.keys.press(Qt::Key_unknown, Modifier::Command | Modifier::Control,
                                         QString(QChar(character)), isRepeat);
        };
        QVERIFY2(!press(u'1'), "another window has the keyboard");
        shell.delegate->toggleKeyboardOpen();
        QVERIFY(press(u'3') && press(u'1'));
        QVERIFY2(press(u'1', true), "a held key launches once");
        QVERIFY2(press(u'2'), "a widget's key does nothing");
        QVERIFY2(!press(u'4') && !press(u'0') && !press(u'a'), "other keys are passed on");
        QCOMPARE(shell.fake.applications.opened,
                 (QStringList{QStringLiteral("/apps/three"), QStringLiteral("/apps/one")}));
        QVERIFY2(shell.expanded(), "launching must leave the shelf open");
    }

    void answersTheMenusKeysInEveryWindow() {
        ShellFixture shell;
        QVERIFY(shell.fake.keys.press(Qt::Key_Comma, Modifier::Command, QStringLiteral(",")));
        QCOMPARE(shell.fake.panel.activated.size(), 1);
        QVERIFY(!shell.fake.keys.press(Qt::Key_Comma, {}, QStringLiteral(",")));
        QVERIFY2(!shell.fake.keys.press(Qt::Key_Q, Modifier::Command | Modifier::Shift),
                 "another program's chord must not quit this one");
    }

    void hotKeysActAfterTheHostsHandling() {
        ShellFixture shell;
        Q_EMIT shell.fake.hotKeys.pressed(1);
        QVERIFY(!shell.expanded());
        QCoreApplication::processEvents();
        QVERIFY(shell.delegate->opener().isKeyboardOpen());
        Q_EMIT shell.fake.hotKeys.pressed(2);
        shell.delegate.reset();
        QCoreApplication::processEvents(); // dropped
    }
};

static const RegisteredTest<KeysTest> registeredKeysTest;

#include "KeysTest.moc"
