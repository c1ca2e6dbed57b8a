#include "FocusFixture.h"
#include "TestRegistry.h"

#include <QTest>

namespace perchly {

namespace {

constexpr int largest = std::numeric_limits<int>::max();

Clock::TimePoint moment(const QString &utc) {
    const QDateTime time = QDateTime::fromString(utc + u'Z', Qt::ISODate);
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
        row("a fraction counts as none", 7.5, 0);
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
        QCOMPARE(fixture.preferences.written, // a session without its minutes would be half lost
                 QStringList(QStringLiteral("focusSessions+focusTotalMinutes")));
        QCOMPARE(fixture.totals(), total == largest ? totalsText(largest, largest)
                                                    : totalsText(total + 1, total + 25));
    }

    void totalsOfAnotherDayStartAgain_data() {
        QTest::addColumn<PreferenceValue>("day");
        const double today = FocusFixture().secondsOf(FakeClock().startOfDay());
        QTest::newRow("of yesterday") << PreferenceValue(today - 86400);
        QTest::newRow("of tomorrow, before the clock was set back")
            << PreferenceValue(today + 86400);
        QTest::newRow("of a day that is no number") << PreferenceValue(QString::number(today));
    }

    void totalsOfAnotherDayStartAgain() {
        QFETCH(PreferenceValue, day);
        FocusFixture fixture;
        fixture.storeTotals(4, 100);
        fixture.preferences.values[keys::focusDay] = day;
        fixture.start();
        QCOMPARE(fixture.totals(), totalsText(0, 0));
        // Killed between two writes, the next start would count yesterday's totals as today's.
        QCOMPARE(fixture.preferences.written,
                 QStringList(QStringLiteral("focusDay+focusSessions+focusTotalMinutes")));
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
        QCOMPARE(fixture.sound.played, 1);
    }

    void aWallClockThatIsSetChangesTheDayAtOnce_data() {
        QTest::addColumn<int>("hours");
        QTest::addColumn<bool>("anotherDay");
        QTest::newRow("set to another hour of the day, the totals stay") << 3 << false;
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
        fixture.model->focus();
        fixture.clock.advance((hours == 3 ? 9h : 12h) - 1ms);
        QCOMPARE(fixture.totals(), totalsText(anotherDay ? 1 : 5, anotherDay ? 25 : 125));
        fixture.clock.advance(1ms);
        QCOMPARE(fixture.totals(), totalsText(0, 0));
    }
};

static const RegisteredTest<FocusDayTest> registeredFocusDayTest;

} // namespace perchly

#include "FocusDayTest.moc"
