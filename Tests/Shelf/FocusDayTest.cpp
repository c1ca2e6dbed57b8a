#include "FocusFixture.h"
#include "TestRegistry.h"

#include <QTest>

namespace perchly {

namespace {

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
        constexpr int max = std::numeric_limits<int>::max();
        QTest::newRow("a number") << PreferenceValue(7.0) << 7;
        QTest::newRow("a fraction") << PreferenceValue(7.5) << 0;
        QTest::newRow("negative") << PreferenceValue(-3.0) << 0;
        QTest::newRow("beyond 32 bits") << PreferenceValue(1e12) << max;
    }

    void storedTotals() {
        QFETCH(PreferenceValue, stored);
        QFETCH(int, total);
        FocusFixture fixture;
        fixture.storeTotals(0, 0);
        fixture.preferences.values[keys::focusSessions] = stored;
        fixture.preferences.values[keys::focusTotalMinutes] = stored;
        fixture.start().focus();
        QCOMPARE(fixture.model->todaySessions(), total);
        fixture.clock.advance(25min);
        QCOMPARE(fixture.preferences.written, // a session without its minutes would be half lost
                 QStringList(QStringLiteral("focusSessions+focusTotalMinutes")));
        const auto plus = [total](int more) { return total > 7 ? total : total + more; };
        QCOMPARE(fixture.totals(), totalsText(plus(1), plus(25)));
    }

    void totalsOfAnotherDayStartAgain() {
        FocusFixture fixture;
        fixture.storeTotals(4, 100);
        fixture.preferences.values[keys::focusDay] = 86400.0;
        fixture.start();
        QCOMPARE(fixture.totals(), totalsText(0, 0));
        // In one write: killed in between, yesterday's totals would count as today's.
        QCOMPARE(fixture.preferences.written,
                 QStringList(QStringLiteral("focusDay+focusSessions+focusTotalMinutes")));
    }

    void aSessionOverMidnightCountsForTheNewDay() {
        FocusFixture fixture(moment(QStringLiteral("2026-09-21T23:50:00")));
        fixture.storeTotals(4, 100);
        fixture.start().focus();
        fixture.clock.advance(10min);
        QCOMPARE(fixture.totals(), totalsText(0, 0));
        fixture.clock.advance(15min);
        QCOMPARE(fixture.totals(), totalsText(1, 25));
        QCOMPARE(fixture.sound.played, 1);
    }

    void aSessionThatEndedInSleepCountsOnWaking() {
        FocusFixture fixture(moment(QStringLiteral("2026-09-21T14:00:00")));
        fixture.storeTotals(4, 100);
        fixture.start().focus();
        fixture.clock.sleepFor(20h);
        fixture.clock.advance(1s);
        QCOMPARE(fixture.totals(), totalsText(1, 25));
        QVERIFY(!fixture.model->running());
        QCOMPARE(fixture.sound.played, 1);
    }

    void settingTheWallClockChangesTheDay() {
        FocusFixture fixture(moment(QStringLiteral("2026-09-21T12:00:00")));
        fixture.storeTotals(4, 100);
        fixture.start();
        fixture.clock.setWallClock(fixture.clock.now() + 3h);
        QCOMPARE(fixture.totals(), totalsText(4, 100));
        fixture.clock.setWallClock(fixture.clock.now() - 24h);
        QCOMPARE(fixture.totals(), totalsText(0, 0));
        fixture.model->focus();
        fixture.clock.advance(9h - 1ms);
        QCOMPARE(fixture.totals(), totalsText(1, 25));
        fixture.clock.advance(1ms);
        QCOMPARE(fixture.totals(), totalsText(0, 0));
    }
};

static const RegisteredTest<FocusDayTest> registeredFocusDayTest;

} // namespace perchly

#include "FocusDayTest.moc"
