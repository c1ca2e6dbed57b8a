#include "QtKeyMonitor.h"

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
    void translates() {
        const auto press = [](int key, Qt::KeyboardModifiers held, quint32 scanCode) {
            return keyPressFromQt(QKeyEvent(QEvent::KeyPress, key, held, scanCode, 0, 0));
        };
        const KeyPress control = press(Qt::Key_2, Qt::ControlModifier, 11);
        QCOMPARE(control.key, Qt::Key_2);
        QCOMPARE(control.modifiers, Modifier::Control | Modifier::Command);
        QCOMPARE(press(Qt::Key_2, Qt::MetaModifier, 11).modifiers, Modifiers(Modifier::Command));
        QCOMPARE(press(Qt::Key_Space, Qt::ControlModifier | Qt::AltModifier, 65).modifiers,
                 Modifier::Control | Modifier::Option);

        const auto characters = [&](int key, quint32 scanCode) {
            return press(key, {}, scanCode).charactersIgnoringModifiers;
        };
        QCOMPARE(characters(Qt::Key_2, 11), QStringLiteral("2"));
        QCOMPARE(characters(Qt::Key_Eacute, 11),
                 QStringLiteral("2")); // a layout with shifted digits
        QCOMPARE(characters(Qt::Key_0, 19), QStringLiteral("0"));
        QCOMPARE(characters(Qt::Key_7, 79), QStringLiteral("7")); // keypad
        QCOMPARE(characters(Qt::Key_Home, 79), QString());
        QCOMPARE(characters(Qt::Key_Escape, 9), QString());
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
