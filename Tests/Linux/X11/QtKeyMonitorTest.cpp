#include "QtKeyMonitor.h"
#include "KeyTranslation.h"

#include <QKeyEvent>
#include <QShortcut>
#include <QSignalSpy>
#include <QTest>
#include <QWindow>

using namespace perchly;

namespace {

class TypedWindow : public QWindow {
public:
    QList<int> typed;

protected:
    void keyPressEvent(QKeyEvent *event) override { typed.append(event->key()); }
};

} // namespace

class QtKeyMonitorTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void translates_data() {
        QTest::addColumn<int>("key");
        QTest::addColumn<Qt::KeyboardModifiers>("held");
        QTest::addColumn<quint32>("scanCode");
        QTest::addColumn<Modifiers>("modifiers");
        QTest::addColumn<QString>("characters");

        const Qt::KeyboardModifiers none;
        const auto row = [](const char *name, int key, Qt::KeyboardModifiers held, quint32 scanCode,
                            Modifiers modifiers, const char *characters) {
            QTest::newRow(name) << key << held << scanCode << modifiers
                                << QString::fromUtf8(characters);
        };
        row("Ctrl+2 is Control and Command", Qt::Key_2, Qt::ControlModifier, 11,
            Modifier::Control | Modifier::Command, "2");
        row("Super+2 is Command alone", Qt::Key_2, Qt::MetaModifier, 11, Modifier::Command, "2");
        row("Ctrl+Alt+Space is exactly Control and Option", Qt::Key_Space,
            Qt::ControlModifier | Qt::AltModifier, 65, Modifier::Control | Modifier::Option, " ");
        row("a digit that needs Shift", Qt::Key_Eacute, Qt::MetaModifier, 11, Modifier::Command,
            "2");
        row("a digit written with Shift", Qt::Key_At, Qt::MetaModifier | Qt::ShiftModifier, 11,
            Modifier::Command | Modifier::Shift, "2");
        row("zero comes after nine", Qt::Key_0, none, 19, {}, "0");
        row("a digit of the keypad", Qt::Key_7, Qt::KeypadModifier | Qt::ControlModifier, 79,
            Modifier::Control | Modifier::Command, "7");
        row("the keypad without Num Lock moves", Qt::Key_Home, Qt::KeypadModifier, 79, {}, "");
        row("Escape writes nothing", Qt::Key_Escape, none, 9, {}, "");
    }

    void translates() {
        QFETCH(int, key);
        QFETCH(Qt::KeyboardModifiers, held);
        QFETCH(quint32, scanCode);
        QFETCH(Modifiers, modifiers);
        QFETCH(QString, characters);

        const KeyPress press =
            keyPressFromQt(QKeyEvent(QEvent::KeyPress, key, held, scanCode, 0, 0, QString()));
        QCOMPARE(int{press.key}, key);
        QCOMPARE(press.modifiers, modifiers);
        QCOMPARE(press.charactersIgnoringModifiers, characters);
    }

    void seesEachPressOnceAndBeforeShortcuts() {
        TypedWindow window;
        window.show();
        window.requestActivate();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QShortcut shortcut(QKeySequence(Qt::CTRL | Qt::Key_2), &window);
        const QSignalSpy activated(&shortcut, &QShortcut::activated);
        QList<Qt::Key> seen;
        bool isConsuming = false;
        QtKeyMonitor monitor;
        monitor.start([&](const KeyPress &press) {
            if (press.key != Qt::Key_Control) {
                seen.append(press.key);
            }
            return isConsuming;
        });
        for (isConsuming = false; seen.size() < 4; isConsuming = true) {
            QTest::keyClick(&window, Qt::Key_A);
            QTest::keyClick(&window, Qt::Key_2, Qt::ControlModifier);
        }
        QCOMPARE(seen, (QList<Qt::Key>{Qt::Key_A, Qt::Key_2, Qt::Key_A, Qt::Key_2}));
        QCOMPARE(window.typed.count(Qt::Key_A), 1);
        QVERIFY(!window.typed.contains(Qt::Key_2));
        QCOMPARE(activated.count(), 1);
    }
};

QTEST_MAIN(QtKeyMonitorTest)
#include "QtKeyMonitorTest.moc"
