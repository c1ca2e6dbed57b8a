#include "QtClock.h"

#include <QDateTime>
#include <QTest>

using namespace perchly;
using namespace std::chrono_literals;

class QtClockTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void runsDelayedActionsInTheOrderOfTheirTimes() {
        QList<int> order;
        const Task late = m_clock.after(40ms, [&] { order.append(40); });
        const Task early = m_clock.after(10ms, [&] { order.append(10); });
        const Task now = m_clock.after(-1ms, [&] { order.append(0); });
        QCOMPARE(order, QList<int>()); // never from within the call
        QTRY_COMPARE(order, QList<int>({0, 10, 40}));
    }

    void runsOnceAtAMomentOfTheWallClock() {
        const auto moment = m_clock.now() + 30ms;
        int count = 0;
        const Task task = m_clock.at(moment, [&] {
            ++count;
            QVERIFY(m_clock.now() >= moment);
        });
        const Task past = m_clock.at(Clock::TimePoint(), [&] { count += 10; });
        QCOMPARE(count, 0);
        QTRY_COMPARE(count, 11);
    }

    void destroyingATaskCancelsIt() {
        int count = 0;
        const auto action = [&] { ++count; };
        {
            const Task after = m_clock.after(0ms, action);
            const Task every = m_clock.every(1ms, action);
            const Task at = m_clock.at(m_clock.now(), action);
            QTest::qSleep(5); // all are due
        }
        QTest::qWait(20);
        QCOMPARE(count, 0);
    }

    /// And it is not run again.
    void anActionMayDestroyItsOwnTask() {
        for (int kind = 0; kind < 3; ++kind) {
            Task task;
            QString text;
            // Used after its closure is gone, the captured string is seen by a sanitizer.
            const auto action = [&task, &text, own = QString(64, u'x')] {
                task.reset();
                text = own;
            };
            task = kind == 0   ? m_clock.after(1ms, action)
                   : kind == 1 ? m_clock.every(1ms, action)
                               : m_clock.at(m_clock.now() + 1ms, action);
            QTRY_COMPARE(text, QString(64, u'x'));
            text.clear();
            QTest::qWait(10);
            QCOMPARE(text, QString());
        }
    }

    void aDayStartsAtLocalMidnight() {
        const QByteArray before = qgetenv("TZ");
        qputenv("TZ", "America/St_Johns");
        const QDate today = QDate::currentDate();
        const auto toLocal = [](Clock::TimePoint moment) {
            const auto since =
                std::chrono::floor<std::chrono::milliseconds>(moment.time_since_epoch());
            return QDateTime::fromMSecsSinceEpoch(since.count());
        };
        const auto start = m_clock.startOfDay();
        const auto next = m_clock.startOfNextDay();
        QCOMPARE(toLocal(start), QDateTime(today, QTime(0, 0)));
        QCOMPARE(toLocal(next), QDateTime(today.addDays(1), QTime(0, 0)));
        QVERIFY(start <= m_clock.now() && m_clock.now() < next);
        before.isNull() ? qunsetenv("TZ") : qputenv("TZ", before);
    }

private:
    QtClock m_clock;
};

QTEST_GUILESS_MAIN(QtClockTest)
#include "QtClockTest.moc"
