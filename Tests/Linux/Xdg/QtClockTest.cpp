#include "QtClock.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>

using namespace perchly;
using namespace std::chrono_literals;

class QtClockTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void runsDelayedActionsInTheOrderOfTheirTimes();
    void repeatsUntilCancelled();
    void runsAtAMomentOfTheWallClock_data();
    void runsAtAMomentOfTheWallClock();
    void destroyingATaskCancelsIt();
    void anActionMayDestroyItsOwnTask_data();
    void anActionMayDestroyItsOwnTask();
    void anActionMayReplaceItsOwnTask();
    void aDayStartsAtLocalMidnight_data();
    void aDayStartsAtLocalMidnight();

private:
    QtClock m_clock;
};

void QtClockTest::runsDelayedActionsInTheOrderOfTheirTimes() {
    QList<int> order;
    QElapsedTimer elapsed;
    elapsed.start();
    const Task late = m_clock.after(40ms, [&] { order.append(40); });
    const Task early = m_clock.after(10ms, [&] { order.append(10); });
    const Task now = m_clock.after(-1ms, [&] { order.append(0); });
    QCOMPARE(order, QList<int>()); // never from within the call
    QTRY_COMPARE(order, QList<int>({0, 10, 40}));
    QVERIFY(elapsed.elapsed() >= 40);
}

void QtClockTest::repeatsUntilCancelled() {
    int count = 0;
    Task task;
    task = m_clock.every(5ms, [&] {
        if (++count == 3) {
            task.reset();
        }
    });
    QTRY_COMPARE(count, 3);
    QTest::qWait(30);
    QCOMPARE(count, 3);
}

void QtClockTest::runsAtAMomentOfTheWallClock_data() {
    QTest::addColumn<int>("milliseconds");
    QTest::newRow("a moment to come is waited for") << 30;
    QTest::newRow("a moment that has passed is due at once") << -86'400'000;
}

void QtClockTest::runsAtAMomentOfTheWallClock() {
    QFETCH(const int, milliseconds);
    const auto moment = m_clock.now() + std::chrono::milliseconds(milliseconds);
    int count = 0;
    const Task task = m_clock.at(moment, [&] {
        ++count;
        QVERIFY(m_clock.now() >= moment);
    });
    const Task epoch = m_clock.at(Clock::TimePoint(), [&] { count += 10; });
    QCOMPARE(count, 0);
    QTRY_COMPARE(count, 11);
    QTest::qWait(30);
    QCOMPARE(count, 11); // at most once
}

void QtClockTest::destroyingATaskCancelsIt() {
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

void QtClockTest::anActionMayDestroyItsOwnTask_data() {
    QTest::addColumn<int>("kind");
    QTest::newRow("after") << 0;
    QTest::newRow("every") << 1;
    QTest::newRow("at") << 2;
}

void QtClockTest::anActionMayDestroyItsOwnTask() {
    QFETCH(const int, kind);
    Task task;
    QString text;
    // The string is captured, so that using it after its closure is gone is seen by a sanitizer.
    const auto action = [&task, &text, own = QString(64, u'x')] {
        task.reset();
        text = own;
    };
    task = kind == 0   ? m_clock.after(1ms, action)
           : kind == 1 ? m_clock.every(1ms, action)
                       : m_clock.at(m_clock.now() + 1ms, action);
    QTRY_COMPARE(text, QString(64, u'x'));
}

void QtClockTest::anActionMayReplaceItsOwnTask() {
    Task task;
    int count = 0;
    std::function<void()> action = [&] {
        if (++count < 4) {
            task = count % 2 == 0 ? m_clock.after(1ms, action) : m_clock.at(m_clock.now(), action);
        }
    };
    task = m_clock.after(1ms, action);
    QTRY_COMPARE(count, 4);
}

void QtClockTest::aDayStartsAtLocalMidnight_data() {
    QTest::addColumn<QByteArray>("zone");
    QTest::newRow("east of Greenwich") << QByteArray("Asia/Kathmandu");
    QTest::newRow("west of Greenwich") << QByteArray("America/St_Johns");
}

void QtClockTest::aDayStartsAtLocalMidnight() {
    QFETCH(const QByteArray, zone);
    const QByteArray before = qgetenv("TZ");
    qputenv("TZ", zone);
    const QDate today = QDate::currentDate();
    const auto toLocal = [](Clock::TimePoint moment) {
        const auto since = std::chrono::floor<std::chrono::milliseconds>(moment.time_since_epoch());
        return QDateTime::fromMSecsSinceEpoch(since.count());
    };
    const auto start = m_clock.startOfDay();
    const auto next = m_clock.startOfNextDay();
    QCOMPARE(toLocal(start), QDateTime(today, QTime(0, 0)));
    QCOMPARE(toLocal(next), QDateTime(today.addDays(1), QTime(0, 0)));
    QVERIFY(start <= m_clock.now() && m_clock.now() < next);
    before.isNull() ? qunsetenv("TZ") : qputenv("TZ", before);
}

QTEST_GUILESS_MAIN(QtClockTest)
#include "QtClockTest.moc"
