#include "ShellFixture.h"
#include "TestRegistry.h"

#include <QTest>

using namespace perchly;

class KeysTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void handlesOnlyItsOwnKeys() {
        ShellFixture shell;
        FakeKeys &keys = shell.fake.keys;
        constexpr Modifiers controlOption = Modifier::Control | Modifier::Option;
        QVERIFY(!keys.press(Qt::Key_Space));
        QVERIFY(!keys.press(Qt::Key_Space, controlOption | Modifier::Shift));
        QVERIFY(!keys.press(Qt::Key_Q, Modifier::Command | Modifier::Shift));
        QVERIFY(keys.press(Qt::Key_Space, controlOption));
        QVERIFY(keys.press(Qt::Key_Space, controlOption, {}, true));
        QVERIFY2(shell.delegate->opener().isKeyboardOpen(), "a held key toggled twice");
        shell.delegate->model().setChoosingWidget(true);
        QVERIFY2(!keys.press(Qt::Key_Escape), "Escape was taken from the chooser");
        QVERIFY(shell.expanded());
        shell.delegate->model().setChoosingWidget(false);
        QVERIFY(keys.press(Qt::Key_Escape));
        QVERIFY(!shell.expanded());
    }

    void closingReturnsABorrowedKeyboard() {
        ShellFixture shell;
        QVERIFY2(!shell.delegate->takeKeyboard(), "the collapsed shelf took it");
        shell.pointerOntoPill();
        QVERIFY(shell.delegate->takeKeyboard() && shell.fake.panel.keyboard);
        QVERIFY(!shell.delegate->opener().isKeyboardOpen());
        shell.pointerAway();
        shell.fake.clock.advance(std::chrono::milliseconds(350));
        QVERIFY(!shell.fake.panel.keyboard);
        shell.pointerOntoPill();
        QVERIFY(shell.delegate->takeKeyboard());
        shell.delegate->toggleKeyboardOpen();
        shell.delegate->returnKeyboard();
        QVERIFY2(shell.fake.panel.keyboard, "keyboard mode lost it");
    }

    void digitLaunchesTheShownEntry() {
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
            return shell.fake.keys.press(Qt::Key_unknown, Modifier::Command, QString(character),
                                         isRepeat);
        };
        QVERIFY2(!press(u'1'), "another window has the keyboard");
        shell.delegate->toggleKeyboardOpen();
        QVERIFY(press(u'3'));
        QVERIFY2(shell.expanded(), "it closed before an error could come");
        shell.fake.applications.asked.takeLast().second(QStringLiteral("It is missing."));
        shell.fake.clock.advance(std::chrono::seconds(1));
        QVERIFY2(shell.expanded() && !press(u'3'), "the error is not shown");
        QVERIFY(shell.fake.keys.press(Qt::Key_Escape));
        QVERIFY(press(u'3'));
        shell.fake.applications.asked.takeLast().second({});
        QVERIFY2(!shell.expanded() && !press(u'1'), "launching did not close it");
        shell.delegate->toggleKeyboardOpen();
        QVERIFY2(press(u'1', true), "a held key launches once");
        QVERIFY2(press(u'2'), "a widget's key does nothing");
        QVERIFY2(!press(u'4') && !press(u'0'), "other keys are passed on");
        QCOMPARE(shell.fake.applications.opened, (QStringList(2, QStringLiteral("/apps/three"))));
        Q_EMIT shell.fake.panel.keyboardLost();
        QVERIFY2(!shell.expanded(), "it stays open without the keyboard");
        shell.delegate->toggleKeyboardOpen();
        Q_EMIT shell.fake.panel.keyboardRefused();
        QVERIFY(!shell.expanded());
        QCOMPARE(shell.fake.notifications.open.first().title, QStringLiteral("No keyboard"));
    }

    void reportsHotKeysTakenByOtherPrograms() {
        const auto message = [](const QSet<int> &heldByOthers, const QString &searchChord = {},
                                bool supported = true) {
            ShellFixture shell([&](FakeHosts &fake) {
                fake.hotKeys.supported = supported;
                fake.hotKeys.heldByOthers = heldByOthers;
                fake.preferences.setString(keys::searchChord, searchChord);
            });
            const QString shown = shell.delegate->productivity().message();
            shell.fake.hotKeys.heldByOthers.clear();
            shell.delegate->showSettings(); // tries again
            return shell.delegate->productivity().message().isEmpty() ? shown : QString();
        };
        constexpr int toggle = ShelfHotKey::Toggle;
        constexpr int search = ShelfHotKey::Search;
        const QString usual = QStringLiteral("Could not register Ctrl+Alt+K for search.");
        QCOMPARE(message({search}), usual);
        QCOMPARE(message({search}, QStringLiteral("Shift+K")), usual); // a damaged preference
        QCOMPARE(message({search}, QStringLiteral("Meta+F3")),
                 QStringLiteral("Could not register Meta+F3 for search."));
        QCOMPARE(message({toggle, search}),
                 QStringLiteral(
                     "Could not register Ctrl+Alt+Space. Another app may use that shortcut."));
        QVERIFY(message({search}, {}, false).contains(QStringLiteral("“perchly search”")));
    }

    void dismissedHintToBindKeysStaysAway() {
        QMap<QString, PreferenceValue> stored;
        for (const bool isHinting : {true, false}) {
            ShellFixture shell([&](FakeHosts &fake) {
                fake.preferences.values = stored;
                fake.hotKeys.supported = false;
                fake.hotKeys.heldByOthers = {ShelfHotKey::Toggle, ShelfHotKey::Search};
            });
            Productivity &tools = shell.delegate->productivity();
            QCOMPARE(!tools.message().isEmpty(), isHinting);
            tools.dismissMessage();
            stored = shell.fake.preferences.values;
        }
    }
};

static const RegisteredTest<KeysTest> registeredKeysTest;

#include "KeysTest.moc"
