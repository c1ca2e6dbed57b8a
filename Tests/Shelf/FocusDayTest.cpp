#include "FocusFixture.h"
#include "TestRegistry.h"

#include <QTest>

namespace perchly {

namespace {

constexpr int largest = std::numeric_limits<int>::max();

Clock::TimePoint moment(const QString &local, const QTimeZone &zone = QTimeZone::utc()) {
    QDateTime time = QDateTime::fromString(local, Qt::ISODate);
    time.setTimeZone(zone);
    return Clock::TimePoint(std::chrono::milliseconds(time.toMSecsSinceEpoch()));
}

} // namespace

class FocusDayTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void storedTotals_data() {
        QTest::addColumn<PreferenceValue>("stored");
        QTest::addColumn<int>("total");
        const auto row = [](const char *name, const PreferenceValue &stored, int total) {
            QTest::newRow(name) << stored << total;
        };
        row("a number is the total", 7.0, 7);
        row("a string counts as none", QStringLiteral("7"), 0);
        row("a boolean counts as none", true, 0);
        row("data counts as none", QByteArray("7"), 0);
        row("a fraction counts as none", 7.5, 0);
        row("not a number counts as none", std::numeric_limits<double>::quiet_NaN(), 0);
        row("a negative number counts as none", -3.0, 0);
        row("a number beyond 32 bits is limited", 1e12, largest);
        row("a number beyond 64 bits counts as none", 1e300, 0);
    }

    void storedTotals() {
        QFETCH(PreferenceValue, stored);
        QFETCH(int, total);
        FocusFixture fixture;
        fixture.storeTotals(0, 0);
        fixture.preferences.values[keys::focusSessions] = stored;
        fixture.preferences.values[keys::focusTotalMinutes] = stored;
        ShelfModel &model = fixture.start();
        QCOMPARE(model.todaySessions(), total);
        QCOMPARE(model.todayMinutes(), total);
        QCOMPARE(fixture.preferences.written, QStringList());

        model.focus();
        fixture.clock.advance(25min);
        const bool full = total == largest;
        QCOMPARE(fixture.totals(),
                 totalsText(full ? largest : total + 1, full ? largest : total + 25));
    }

    void totalsOfAnotherDayStartAgain_data() {
        QTest::addColumn<PreferenceValue>("day");
        const double today = FocusFixture().secondsOf(FakeClock().startOfDay());
        QTest::newRow("of yesterday") << PreferenceValue(today - 86400);
        QTest::newRow("of tomorrow, before the clock was set back")
            << PreferenceValue(today + 86400);
        QTest::newRow("of today in another time zone") << PreferenceValue(today + 3600);
        QTest::newRow("of a day that is no number") << PreferenceValue(QString::number(today));
        QTest::newRow("of a day that is not a number")
            << PreferenceValue(std::numeric_limits<double>::quiet_NaN());
    }

    void totalsOfAnotherDayStartAgain() {
        QFETCH(PreferenceValue, day);
        FocusFixture fixture;
        fixture.storeTotals(4, 100);
        fixture.preferences.values[keys::focusDay] = day;
        fixture.start();
        QCOMPARE(fixture.totals(), totalsText(0, 0));
    }

    void theFirstRunStoresTheDay() {
        FocusFixture fixture;
        fixture.start();
        QCOMPARE(fixture.totals(), totalsText(0, 0));
    }

    /// Killed between two writes, the next start must not count yesterday's totals as today's.
    void theNewDayIsStoredAfterTheClearedTotals() {
        FocusFixture fixture;
        fixture.storeTotals(4, 100);
        fixture.preferences.values[keys::focusDay] = 0.0;
        fixture.start();
        QCOMPARE(fixture.preferences.written.size(), 3);
        QCOMPARE(fixture.preferences.written.constLast(), QString(keys::focusDay));
    }

    void theDayEndsAtLocalMidnight_data() {
        QTest::addColumn<QByteArray>("zone");
        QTest::addColumn<QString>("noonBefore");
        QTest::addColumn<int>("minutesOfNextDay");
        QTest::newRow("an ordinary day") << QByteArray("UTC") << "2026-09-21T12:00:00" << 1440;
        QTest::newRow("a day of 23 hours, when summer time begins")
            << QByteArray("Europe/Berlin") << "2026-03-28T12:00:00" << 23 * 60;
        QTest::newRow("a day of 25 hours, when summer time ends")
            << QByteArray("Europe/Berlin") << "2026-10-24T12:00:00" << 25 * 60;
        QTest::newRow("a day without a midnight, which starts at one o'clock")
            << QByteArray("America/Sao_Paulo") << "2018-11-03T12:00:00" << 23 * 60;
        QTest::newRow("a day with half an hour more")
            << QByteArray("Australia/Lord_Howe") << "2026-04-04T12:00:00" << 24 * 60 + 30;
    }

    void theDayEndsAtLocalMidnight() {
        QFETCH(QByteArray, zone);
        QFETCH(QString, noonBefore);
        QFETCH(int, minutesOfNextDay);
        const QTimeZone timeZone(zone);
        QVERIFY(timeZone.isValid());
        FocusFixture fixture(moment(noonBefore, timeZone), timeZone);
        fixture.storeTotals(4, 100);
        ShelfModel &model = fixture.start();

        fixture.clock.advance(12h - 1s);
        QCOMPARE(fixture.totals(), totalsText(4, 100));
        fixture.clock.advance(1s);
        QCOMPARE(fixture.totals(), totalsText(0, 0));

        model.focus();
        fixture.clock.advance(25min);
        fixture.clock.advance(std::chrono::minutes(minutesOfNextDay) - 25min - 1s);
        QCOMPARE(fixture.totals(), totalsText(1, 25));
        fixture.clock.advance(1s);
        QCOMPARE(fixture.totals(), totalsText(0, 0));
    }

    void aSessionOverMidnightCountsForTheNewDay() {
        FocusFixture fixture(moment(QStringLiteral("2026-09-21T23:50:00")));
        fixture.storeTotals(4, 100);
        ShelfModel &model = fixture.start();
        model.focus();
        fixture.clock.advance(10min - 1s);
        QCOMPARE(fixture.totals(), totalsText(4, 100));
        fixture.clock.advance(1s);
        QCOMPARE(fixture.totals(), totalsText(0, 0));
        QCOMPARE(model.seconds(), 15 * 60);
        fixture.clock.advance(15min);
        QCOMPARE(fixture.totals(), totalsText(1, 25));
        QCOMPARE(fixture.sound.played, 1);
    }

    void aSessionThatRanOutInSleep_data() {
        QTest::addColumn<int>("hours");
        QTest::addColumn<int>("sessions");
        QTest::addColumn<int>("minutes");
        QTest::newRow("on the same day adds to the day") << 2 << 5 << 125;
        QTest::newRow("woken on another day counts alone, for the new day") << 20 << 1 << 25;
        QTest::newRow("woken days later counts alone, for the new day") << 24 * 5 << 1 << 25;
    }

    void aSessionThatRanOutInSleep() {
        QFETCH(int, hours);
        QFETCH(int, sessions);
        QFETCH(int, minutes);
        FocusFixture fixture(moment(QStringLiteral("2026-09-21T14:00:00")));
        fixture.storeTotals(4, 100);
        ShelfModel &model = fixture.start();
        model.focus();
        fixture.clock.sleepFor(std::chrono::hours(hours));
        fixture.clock.advance(1s);
        QCOMPARE(fixture.totals(), totalsText(sessions, minutes));
        QVERIFY(!model.running());
        QCOMPARE(model.activity(), QStringLiteral("Focus complete"));
        QCOMPARE(fixture.sound.played, 1);
        fixture.clock.advance(1h);
        QCOMPARE(fixture.sound.played, 1);
    }

    void sleepDoesNotTouchAPausedSession() {
        FocusFixture fixture(moment(QStringLiteral("2026-09-21T20:00:00")));
        fixture.storeTotals(4, 100);
        ShelfModel &model = fixture.start();
        model.focus();
        fixture.clock.advance(5min);
        model.togglePause();
        fixture.clock.sleepFor(12h);
        QCOMPARE(fixture.totals(),
                 totalsText(0, 0)); // at once: nothing else would wake the program
        QCOMPARE(model.seconds(), 20 * 60);
        model.togglePause();
        fixture.clock.advance(20min);
        QCOMPARE(fixture.totals(), totalsText(1, 25));
    }

    void aWallClockThatIsSetChangesTheDayAtOnce_data() {
        QTest::addColumn<int>("hours");
        QTest::addColumn<bool>("anotherDay");
        QTest::newRow("set to another hour of the day, the totals stay") << 3 << false;
        QTest::newRow("set back to another hour of the day, the totals stay") << -3 << false;
        QTest::newRow("set to tomorrow, they start again") << 24 << true;
        QTest::newRow("set to yesterday, they start again") << -24 << true;
    }

    void aWallClockThatIsSetChangesTheDayAtOnce() {
        QFETCH(int, hours);
        QFETCH(bool, anotherDay);
        FocusFixture fixture(moment(QStringLiteral("2026-09-21T12:00:00")));
        fixture.storeTotals(4, 100);
        fixture.start();
        fixture.clock.setWallClock(fixture.clock.now() + std::chrono::hours(hours));
        QCOMPARE(fixture.totals(), totalsText(anotherDay ? 0 : 4, anotherDay ? 0 : 100));

        // From there the end of the new day is waited for.
        fixture.storeTotals(2, 50);
        const auto untilMidnight = std::chrono::ceil<std::chrono::milliseconds>(
            fixture.clock.startOfNextDay() - fixture.clock.now());
        fixture.clock.advance(untilMidnight - 1ms);
        QCOMPARE(fixture.preferences.number(keys::focusSessions), std::optional(2.0));
        fixture.clock.advance(1ms);
        QCOMPARE(fixture.totals(), totalsText(0, 0));
    }
};

static const RegisteredTest<FocusDayTest> registered;

} // namespace perchly

#include "FocusDayTest.moc"
