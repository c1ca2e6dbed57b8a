#include "FieldPasting.h"
#include "Heartbeat.h"
#include "OtherProgram.h"
#include "X11Pasteboard.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

using namespace perchly;

class FieldPastingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QQuickWindow::setGraphicsApi(QSGRendererInterface::Software); }

    void init() {
        QQmlComponent component(&m_engine);
        component.setData("import QtQuick\n"
                          "Window {\n"
                          "  width: 200; height: 100; visible: true\n"
                          "  TextEdit { objectName: 'edit'; width: 200; height: 40; focus: true\n"
                          "             text: 'one two'; selectByMouse: true }\n"
                          "  TextInput { objectName: 'input'; y: 50; width: 200; height: 20\n"
                          "              text: 'one two'; maximumLength: 9; selectByMouse: true }\n"
                          "  TextEdit { objectName: 'readOnly'; y: 80; readOnly: true }\n"
                          "}\n",
                          QUrl());
        m_window.reset(qobject_cast<QQuickWindow *>(component.create()));
        QVERIFY2(m_window, qPrintable(component.errorString()));
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    }

    void cleanup() { m_window.reset(); }

    void aFieldNeverAsksByItself() {
        OtherProgram other({QStringLiteral("UTF8_STRING=a")});
        const qint64 count = m_pasteboard.changeCount();
        OtherProgram next({QStringLiteral("UTF8_STRING=b")});
        QTRY_VERIFY(m_pasteboard.changeCount() > count);
        field("edit")->forceActiveFocus();
        field("input")->forceActiveFocus();
        QTest::qWait(50);
        QCOMPARE(other.asked() + next.asked(), QStringList());
    }

    void theKeysPaste_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("key");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::addColumn<QString>("text");
        const QString edit = QStringLiteral("edit");
        const QString all = QStringLiteral("one naïve\npaste");
        QTest::newRow("Ctrl+V") << edit << int(Qt::Key_V)
                                << Qt::KeyboardModifiers(Qt::ControlModifier) << all;
        QTest::newRow("Shift+Insert")
            << edit << int(Qt::Key_Insert) << Qt::KeyboardModifiers(Qt::ShiftModifier) << all;
        QTest::newRow("as much as the field takes")
            << QStringLiteral("input") << int(Qt::Key_V)
            << Qt::KeyboardModifiers(Qt::ControlModifier) << QStringLiteral("one naïve");
        QTest::newRow("nothing where nothing can be written")
            << QStringLiteral("readOnly") << int(Qt::Key_V)
            << Qt::KeyboardModifiers(Qt::ControlModifier) << QString();
    }

    void theKeysPaste() {
        QFETCH(QString, name);
        QFETCH(int, key);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        QFETCH(QString, text);
        OtherProgram other({QStringLiteral("UTF8_STRING=naïve\npaste")});
        auto *edit = m_window->findChild<QQuickItem *>(name);
        const QString before = edit->property("text").toString();
        QMetaObject::invokeMethod(edit, "select", Q_ARG(int, 4), Q_ARG(int, 7));
        type(edit, key, modifiers);
        if (before != text)
            QCOMPARE(edit->property("text").toString(), before); // it has not waited
        QTRY_COMPARE(edit->property("text").toString(), text);
        QMetaObject::invokeMethod(edit, "undo");
        QCOMPARE(edit->property("text").toString(), before);
    }

    void twoPastesInARowArriveBoth() {
        OtherProgram other({QStringLiteral("UTF8_STRING=ab")});
        field("edit")->setProperty("cursorPosition", 3);
        type(field("edit"), Qt::Key_V, Qt::ControlModifier);
        type(field("edit"), Qt::Key_V, Qt::ControlModifier);
        QTRY_COMPARE(field("edit")->property("text").toString(), QStringLiteral("oneabab two"));
    }

    void theMiddleButtonPastesWhatIsSelectedElsewhere_data() {
        QTest::addColumn<int>("y");
        QTest::newRow("edit") << 8;
        QTest::newRow("input") << 58;
    }

    void theMiddleButtonPastesWhatIsSelectedElsewhere() {
        QFETCH(int, y);
        OtherProgram other({QStringLiteral("--primary"), QStringLiteral("UTF8_STRING=ab")});
        QTest::mouseClick(m_window.get(), Qt::MiddleButton, {}, QPoint(190, y));
        QTRY_COMPARE(field(QTest::currentDataTag())->property("text").toString(),
                     QStringLiteral("one twoab"));
        QTest::qWait(20);
        QCOMPARE(other.asked().count(QStringLiteral("UTF8_STRING")), 1);
    }

    void aMuteOwnerHoldsNothingUp() {
        OtherProgram other(
            {QStringLiteral("--mute"), QStringLiteral("TARGETS"), QStringLiteral("UTF8_STRING=a")});
        const Heartbeat heartbeat;
        type(field("edit"), Qt::Key_V, Qt::ControlModifier);
        QVERIFY(other.waitFor("asked TARGETS"));
        field("edit")->setProperty("cursorPosition", 7);
        type(field("edit"), Qt::Key_X, Qt::NoModifier, QStringLiteral("x"));
        QTest::qWait(300);
        QCOMPARE(field("edit")->property("text").toString(), QStringLiteral("one twox"));
        QVERIFY2(heartbeat.longest() < 200, qPrintable(QString::number(heartbeat.longest())));
    }

private:
    QQuickItem *field(const char *name) const {
        return m_window->findChild<QQuickItem *>(QString::fromLatin1(name));
    }
    static void type(QObject *to, int key, Qt::KeyboardModifiers modifiers,
                     const QString &text = {}) {
        QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
        QCoreApplication::sendEvent(to, &press);
    }

    X11Pasteboard m_pasteboard;
    FieldPasting m_pasting{m_pasteboard};
    QQmlEngine m_engine;
    std::unique_ptr<QQuickWindow> m_window;
};

QTEST_MAIN(FieldPastingTest)
#include "FieldPastingTest.moc"
