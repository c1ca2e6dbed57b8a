#include "QtClock.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>

using namespace perchly;
using namespace std::chrono_literals;

class QtClockTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void wallClockActionRunsOnlyOnce() {
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

    void wallClockActionRunsWhenTheZoneChanges() {
        const QTemporaryDir folder;
        const auto link = [&folder](const char *name, const QString &zone) {
            const QString path = folder.filePath(QString::fromLatin1(name));
            return QFile::link(zone, path) ? QFile::encodeName(path) : QByteArray();
        };
        const QByteArray localtime = link("localtime", QStringLiteral("Europe/Berlin"));
        const QByteArray other = link("other", QStringLiteral("Asia/Tokyo"));
        QtClock clock(localtime);
        int count = 0;
        const Task task = clock.at(clock.now() + 1h, [&count] { ++count; });
        QCOMPARE(std::rename(other, localtime), 0);
        QTRY_COMPARE(count, 1);
    }

    void destroyedTaskNeverRuns() {
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

    void actionMayDestroyItsOwnTask() {
        for (int kind = 0; kind < 3; ++kind) {
            Task task;
            QString text;
            // A sanitizer detects use of the captured string after the closure is destroyed.
            const auto action = [&task, &text, own = QString(64, u'x')] {
                task.reset();
                text += own;
            };
            task = kind == 0   ? m_clock.after(1ms, action)
                   : kind == 1 ? m_clock.every(1ms, action)
                               : m_clock.at(m_clock.now() + 1ms, action);
            QTest::qWait(20);
            QCOMPARE(text, QString(64, u'x'));
        }
    }

private:
    QtClock m_clock;
};

QTEST_GUILESS_MAIN(QtClockTest)
#include "QtClockTest.moc"
