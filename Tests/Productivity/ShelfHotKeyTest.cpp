#include "ShelfHotKey.h"
#include "FakePlatform.h"
#include "Productivity.h"
#include "ShellActions.h"
#include "TestRegistry.h"

#include <QCoreApplication>
#include <QTest>

namespace perchly {

namespace {

/// Writes down what it is asked for.
class RecordingShell : public ShellActions {
public:
    void showShelf() override { note("showShelf"); }
    void showSettings() override { note("showSettings"); }
    void showTools() override { note("showTools"); }
    void showMixer() override { note("showMixer"); }
    void showSearch() override { note("showSearch"); }
    void launch(const QString &) override { note("launch"); }
    void terminate() override { note("terminate"); }
    void toggleKeyboardOpen() override { note("toggleKeyboardOpen"); }
    bool takeKeyboard() override {
        note("takeKeyboard");
        return true;
    }
    void returnKeyboard() override { note("returnKeyboard"); }
    void resize() override { note("resize"); }
    void handlePressed() override { note("handlePressed"); }
    void handleMoved() override { note("handleMoved"); }
    void handleReleased() override { note("handleReleased"); }
    void handleCanceled() override { note("handleCanceled"); }

    QStringList asked;

private:
    void note(const char *action) { asked.append(QString::fromLatin1(action)); }
};

struct HotKeyFixture {
    HotKeyFixture() { hotKey.emplace(hotKeys, shell, productivity); }

    void press(int identifier) { Q_EMIT hotKeys.pressed(identifier); }

    FakeHotKeys hotKeys;
    RecordingShell shell;
    Productivity productivity;
    std::optional<ShelfHotKey> hotKey;
};

const QString toggle = QStringLiteral("toggleKeyboardOpen");
const QString search = QStringLiteral("showSearch");

} // namespace

class ShelfHotKeyTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void bothChordsAreTakenInOrder() {
        HotKeyFixture fixture;
        QVERIFY(fixture.hotKeys.registered.isEmpty());
        fixture.hotKey->registerChords();
        const Modifiers controlOption = Modifier::Control | Modifier::Option;
        QCOMPARE(fixture.hotKeys.registered.size(), 2);
        QVERIFY(fixture.hotKeys.registered.at(0) ==
                std::pair(1, Chord{Qt::Key_Space, controlOption}));
        QVERIFY(fixture.hotKeys.registered.at(1) == std::pair(2, Chord{Qt::Key_K, controlOption}));
    }

    void aChordThatCannotBeHadIsReported_data() {
        QTest::addColumn<QSet<int>>("heldByOthers");
        QTest::addColumn<QString>("message");
        const QString spaceTaken =
            QStringLiteral("Could not register ⌃⌥Space. Another app may use that shortcut.");
        QTest::newRow("both are free") << QSet<int>() << QString();
        QTest::newRow("another program holds the search chord")
            << QSet<int>{2} << QStringLiteral("Could not register ⌃⌥K for search.");
        QTest::newRow("another program holds the toggle chord") << QSet<int>{1} << spaceTaken;
        QTest::newRow("when others hold both, the toggle's message stays")
            << QSet<int>{1, 2} << spaceTaken;
    }

    void aChordThatCannotBeHadIsReported() {
        QFETCH(QSet<int>, heldByOthers);
        QFETCH(QString, message);
        HotKeyFixture fixture;
        fixture.hotKeys.heldByOthers = heldByOthers;
        fixture.hotKey->registerChords();
        QCOMPARE(fixture.productivity.message(), message);
        QCOMPARE(fixture.productivity.message().isNull(), heldByOthers.isEmpty());
        QCOMPARE(fixture.hotKeys.registered.size(), 2);

        fixture.press(2); // the one that was taken still works
        QCoreApplication::processEvents();
        QCOMPARE(fixture.shell.asked, QStringList{search});
    }

    void aPressActsAfterTheHostIsDoneWithIt() {
        HotKeyFixture fixture;
        fixture.hotKey->registerChords();
        fixture.press(1);
        fixture.press(2);
        fixture.press(1);
        QCOMPARE(fixture.shell.asked, QStringList());
        QCoreApplication::processEvents();
        QCOMPARE(fixture.shell.asked, QStringList({toggle, search, toggle}));
    }

    void aPressThatIsStillOnItsWayIsDroppedAtTheEnd() {
        HotKeyFixture fixture;
        fixture.hotKey->registerChords();
        fixture.press(1);
        fixture.hotKey.reset();
        QCoreApplication::processEvents();
        QCOMPARE(fixture.shell.asked, QStringList());
    }
};

static const RegisteredTest<ShelfHotKeyTest> registered;

} // namespace perchly

#include "ShelfHotKeyTest.moc"
