#include "FieldPasting.h"
#include "OtherProgram.h"
#include "X11Pasteboard.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

using namespace perchly;
using namespace Qt::StringLiterals;

class FieldPastingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
        QQmlComponent component(&m_engine);
        component.setData(R"(import QtQuick
            Window {
                width: 200; height: 100; visible: true
                TextEdit { objectName: "edit"; width: 200; height: 40; text: "one two" }
                TextInput { objectName: "input"; y: 50; width: 200; text: "one two"; maximumLength: 9 }
                TextEdit { objectName: "readOnly"; y: 80; text: "one two"; readOnly: true }
            })",
                          {});
        m_window.reset(qobject_cast<QQuickWindow *>(component.create()));
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    }

    void pasteReplacesTheSelectionWithoutWaiting_data() {
        QTest::addColumn<QString>("keys"); // empty for the middle button
        QTest::addColumn<QString>("text");
        QTest::newRow("edit") << u"Shift+Ins"_s << u"one naïve\npaste"_s;
        QTest::newRow("edit") << u"Ctrl+V, Ctrl+V"_s << u"one naïve\npastenaïve\npaste"_s;
        QTest::newRow("edit") << QString() << u"one twoab"_s;
        QTest::newRow("input") << u"Ctrl+V"_s << u"one naïve"_s;
        QTest::newRow("readOnly") << u"Ctrl+V"_s << u"one two"_s;
    }

    void pasteReplacesTheSelectionWithoutWaiting() {
        QFETCH(const QString, keys);
        QFETCH(const QString, text);
        OtherProgram copied(u"UTF8_STRING=naïve\npaste"_s);
        const OtherProgram selected(u"--primary= UTF8_STRING=ab"_s);
        auto *target =
            m_window->findChild<QQuickItem *>(QString::fromLatin1(QTest::currentDataTag()));
        target->forceActiveFocus();
        QTest::qWait(50);
        QVERIFY(!copied.hasSaid("asked"));
        const auto sequence = QKeySequence::fromString(keys);
        if (sequence.isEmpty())
            QTest::mouseClick(m_window.get(), Qt::MiddleButton, {},
                              target->position().toPoint() + QPoint(190, 8));
        else
            QMetaObject::invokeMethod(target, "select", Q_ARG(int, 4), Q_ARG(int, 7));
        for (int i = 0; i < sequence.count(); ++i)
            press(target, sequence[uint(i)]);
        if (!sequence.isEmpty())                                         // a click processes events
            QCOMPARE(target->property("text").toString(), u"one two"_s); // pasting does not wait
        QTest::qWait(100);
        QTRY_COMPARE(target->property("text").toString(), text);
        for (int i = 0; i < sequence.count(); ++i)
            QMetaObject::invokeMethod(target, "undo");
        QCOMPARE(target->property("text").toString(), sequence.isEmpty() ? text : u"one two"_s);
    }

private:
    static void press(QObject *to, QKeyCombination key) {
        QKeyEvent event(QEvent::KeyPress, key.key(), key.keyboardModifiers());
        QCoreApplication::sendEvent(to, &event);
    }

    X11Pasteboard m_pasteboard;
    FieldPasting m_pasting{m_pasteboard};
    QQmlEngine m_engine;
    std::unique_ptr<QQuickWindow> m_window;
};

QTEST_MAIN(FieldPastingTest)
#include "FieldPastingTest.moc"
