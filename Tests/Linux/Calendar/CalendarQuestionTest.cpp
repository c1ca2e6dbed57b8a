#include "CalendarQuestion.h"

#include <QAccessible>
#include <QApplication>
#include <QDialog>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QWindow>

using namespace perchly;

/// The dialog as the person sees it, on a real display.
class CalendarQuestionTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aButtonAnswers_data() {
        QTest::addColumn<CalendarAccess>("current");
        QTest::addColumn<QString>("button");
        QTest::addColumn<bool>("allowed");
        using enum CalendarAccess;
        QTest::newRow("yes") << NotAsked << QStringLiteral("Allow") << true;
        QTest::newRow("no more") << Granted << QStringLiteral("Stop Reading") << false;
    }

    void aButtonAnswers() {
        QFETCH(CalendarAccess, current);
        QFETCH(QString, button);
        const Task task = ask(current);
        QDialog *asked = dialog();
        QVERIFY(asked != nullptr);
        const QAccessible::Id id = accessibleId(asked);
        const auto *list = asked->findChild<QListWidget *>();
        QCOMPARE(list->count(), 1);
        QCOMPARE(list->item(0)->text(), QStringLiteral("Work — /srv/work"));
        for (QPushButton *each : asked->findChildren<QPushButton *>()) {
            if (each->text() == button) {
                QTest::mouseClick(each, Qt::LeftButton);
                break;
            }
        }
        QTRY_COMPARE(m_answers.size(), 1);
        QFETCH(bool, allowed);
        QCOMPARE(m_answers.constFirst(), std::optional(allowed));
        QTRY_VERIFY(QAccessible::accessibleInterface(id) == nullptr);
    }

    void escapeIsNoAnswerAndReturnSaysNothing() {
        const Task task = ask(CalendarAccess::NotAsked);
        QDialog *asked = dialog();
        QVERIFY(asked != nullptr);
        QTest::keyClick(asked, Qt::Key_Return);
        QVERIFY(m_answers.isEmpty());
        QTest::keyClick(asked, Qt::Key_Escape);
        QCOMPARE(m_answers, QList({std::optional<bool>()}));
    }

    void itClosesWithItsTask() {
        Task task = ask(CalendarAccess::NotAsked);
        QDialog *asked = dialog();
        QVERIFY(asked != nullptr);
        const QAccessible::Id id = accessibleId(asked);
        task.reset();
        QTRY_VERIFY(QAccessible::accessibleInterface(id) == nullptr);
        QVERIFY(m_answers.isEmpty());
    }

private:
    Task ask(CalendarAccess current) {
        m_answers.clear();
        return askForCalendars({{QStringLiteral("Work"), QStringLiteral("/srv/work")}}, current,
                               [this](std::optional<bool> allowed) { m_answers.append(allowed); });
    }
    static QDialog *dialog() {
        QDialog *found = nullptr;
        static_cast<void>(QTest::qWaitFor([&found] {
            for (QWidget *widget : QApplication::topLevelWidgets()) {
                if (widget->isVisible() && widget->windowHandle()->isExposed()) {
                    found = qobject_cast<QDialog *>(widget);
                }
            }
            return found != nullptr;
        }));
        return found;
    }
    /// Qt forgets the ID with the dialog. A stale one crashes the next widget at the same address.
    static QAccessible::Id accessibleId(QDialog *dialog) {
        return QAccessible::uniqueId(QAccessible::queryAccessibleInterface(dialog));
    }

    QList<std::optional<bool>> m_answers;
};

QTEST_MAIN(CalendarQuestionTest)
#include "CalendarQuestionTest.moc"
