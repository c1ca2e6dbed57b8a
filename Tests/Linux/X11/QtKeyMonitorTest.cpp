#include "QtKeyMonitor.h"

#include <QKeyEvent>
#include <QShortcut>
#include <QSignalSpy>
#include <QTest>
#include <QWindow>

using namespace perchly;

class QtKeyMonitorTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void keysAndModifiersAreTranslated() {
        const auto press = [](int key, Qt::KeyboardModifiers held, quint32 scanCode) {
            return keyPressFromQt(QKeyEvent(QEvent::KeyPress, key, held, scanCode, 0, 0));
        };
        const auto modifiers = [&](Qt::KeyboardModifiers held) {
            return press(Qt::Key_2, held, 11).modifiers;
        };
        QCOMPARE(modifiers(Qt::ControlModifier), Modifier::Control | Modifier::Command);
        QCOMPARE(modifiers(Qt::MetaModifier), Modifiers(Modifier::Command));
        QCOMPARE(modifiers(Qt::ControlModifier | Qt::AltModifier),
                 Modifier::Control | Modifier::Option);
        struct Row {
            int key;
            quint32 scanCode;
            const char *characters;
        };
        for (const Row &row : {
                 Row{Qt::Key_2, 11, "2"},
                 Row{Qt::Key_Eacute, 11, "2"}, // a layout with shifted digits
                 Row{Qt::Key_0, 19, "0"},
                 Row{Qt::Key_7, 79, "7"}, // keypad
                 Row{Qt::Key_Home, 79, ""},
                 Row{Qt::Key_Escape, 9, ""},
             }) {
            QCOMPARE(press(row.key, {}, row.scanCode).charactersIgnoringModifiers,
                     QString::fromLatin1(row.characters));
        }
    }

    void pressIsSeenOnceAndBeforeShortcuts() {
        QWindow window;
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
        QCOMPARE(activated.count(), 1);
    }
};

QTEST_MAIN(QtKeyMonitorTest)
#include "QtKeyMonitorTest.moc"
