#include "FakeClock.h"
#include "FakePlatform.h"
#include "FakePreferences.h"
#include "PreferenceKeys.h"
#include "ShelfModel.h"
#include "TestRegistry.h"

#include <QSignalSpy>
#include <QTest>
#include <QTimeZone>

#include <limits>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr int maxMinutes = std::numeric_limits<int>::max() / 60;

/// A model with a manual clock. Values stored before `start` are those of the last run.
struct FocusFixture {
    FocusFixture() = default;

    /// Starts at that time of day, with four sessions of 100 minutes already done.
    explicit FocusFixture(const QTime &time)
        : clock(Clock::TimePoint(std::chrono::milliseconds(
              QDateTime({2026, 9, 21}, time, QTimeZone::utc()).toMSecsSinceEpoch()))) {
        preferences.setNumber(keys::focusDay, today());
        preferences.setNumber(keys::focusSessions, 4);
        preferences.setNumber(keys::focusTotalMinutes, 100);
    }

    ShelfModel &start() { return model.emplace(clock, preferences, sound); }

    double today() const {
        return std::chrono::duration<double>(clock.startOfDay().time_since_epoch()).count();
    }

    /// Today's sessions and minutes, in the model and as stored.
    QString totals() const {
        return QStringLiteral("%1 in %2, stored %3 in %4")
            .arg(model->todaySessions())
            .arg(model->todayMinutes())
            .arg(preferences.number(keys::focusSessions).value_or(-1))
            .arg(preferences.number(keys::focusTotalMinutes).value_or(-1));
    }

    FakeClock clock;
    FakePreferences preferences;
    FakeAlertSound sound;
    std::optional<ShelfModel> model;
};

} // namespace

class FocusTimerTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void completedFocusSessionCountsOnce() {
        FocusFixture fixture;
        ShelfModel &model = fixture.start();
        model.setQuietFocus(true);
        model.focus();
        fixture.clock.advance(1min);
        model.togglePause();
        fixture.clock.advance(1h);
        model.togglePause();
        QVERIFY(model.running() && model.quietFocus());
        QCOMPARE(model.seconds(), 24 * 60);
        fixture.clock.advance(24min);
        QCOMPARE(model.activity(), QStringLiteral("Focus complete"));
        model.togglePause(); // nothing to resume
        QVERIFY(!model.running() && !model.quietFocus());
        QCOMPARE(model.todaySessions(), 1);
        QCOMPARE(fixture.sound.played, 1);
    }

    void breakReplacesFocusAndDoesNotCount() {
        FocusFixture fixture;
        ShelfModel &model = fixture.start();
        model.focus();
        model.startBreak();
        QCOMPARE(model.activity(), QStringLiteral("Break"));
        fixture.clock.advance(5min);
        QCOMPARE(model.activity(), QStringLiteral("Break complete"));
        QCOMPARE(model.todaySessions(), 0);
        QCOMPARE(fixture.sound.played, 1);
        model.focus();
        fixture.clock.advance(1min);
        model.focus(); // restarts
        QCOMPARE(model.seconds(), 25 * 60);
        model.togglePause();
        model.endFocus();
        model.togglePause();
        QVERIFY(!model.running());
        QCOMPARE(model.activity(), QStringLiteral("Ready when you are"));
    }

    void storedLengthsAreBounded() {
        const auto lengths = [](const PreferenceValue &stored) {
            FocusFixture fixture;
            fixture.preferences.values[keys::focusMinutes] = stored;
            fixture.preferences.values[keys::breakMinutes] = stored;
            fixture.start().focus();
            const int minutes = fixture.model->seconds() / 60;
            fixture.model->startBreak();
            return QPair(minutes, fixture.model->seconds() / 60);
        };
        QCOMPARE(lengths(50.0), QPair(50, 50));
        QCOMPARE(lengths(-7.0), QPair(1, 1));
        QCOMPARE(lengths(QStringLiteral("50")), QPair(25, 5));
        QCOMPARE(lengths(maxMinutes + 1.0), QPair(maxMinutes, maxMinutes));
    }

    void pausingRoundsUpAndLateTicksAddNoError() {
        FocusFixture fixture;
        ShelfModel &model = fixture.start();
        model.focus();
        fixture.clock.sleepFor(90'300ms);
        fixture.clock.advance(1s);
        QCOMPARE(model.seconds(), 1409); // rounded up from 1408.7
        model.togglePause();
        QCOMPARE(model.seconds(), 1409);
        model.togglePause();
        fixture.clock.sleepFor(26min);
        model.togglePause(); // after the deadline, but before a tick
        QVERIFY(!model.running() && model.seconds() == 0);
    }

    void wakesEachSecondOnlyWhileRunning() {
        FocusFixture fixture;
        ShelfModel &model = fixture.start();
        const QSignalSpy seconds(&model, &ShelfModel::secondsChanged);
        model.focus();
        const auto before = seconds.size();
        fixture.clock.advance(10s);
        QCOMPARE(seconds.size(), before + 10);
        model.togglePause();
        const auto paused = seconds.size();
        QCOMPARE(fixture.clock.scheduledTasks(), 1); // only the end of the day
        fixture.clock.advance(1h);
        QCOMPARE(seconds.size(), paused);
    }

    void sessionOverMidnightCountsForTheNewDay() {
        FocusFixture fixture({23, 50});
        fixture.start().focus();
        fixture.preferences.written.clear();
        fixture.clock.advance(10min);
        QCOMPARE(fixture.totals(), QStringLiteral("0 in 0, stored 0 in 0"));
        QCOMPARE(fixture.preferences.number(keys::focusDay), fixture.today());
        fixture.clock.advance(15min);
        QCOMPARE(fixture.totals(), QStringLiteral("1 in 25, stored 1 in 25"));
        // Each in one write, so that a kill in between leaves consistent totals of the right day.
        QCOMPARE(fixture.preferences.written,
                 (QStringList{QStringLiteral("focusDay+focusSessions+focusTotalMinutes"),
                              QStringLiteral("focusSessions+focusTotalMinutes")}));
    }

    void sessionThatEndsDuringSleepCountsOnWakeUp() {
        FocusFixture fixture({14, 0});
        fixture.start().focus();
        fixture.clock.sleepFor(20h);
        fixture.clock.advance(1s);
        QCOMPARE(fixture.totals(), QStringLiteral("1 in 25, stored 1 in 25"));
        QVERIFY(!fixture.model->running());
        QCOMPARE(fixture.sound.played, 1);
    }

    void wallClockChangesAffectOnlyTheDay() {
        FocusFixture fixture({12, 0});
        ShelfModel &model = fixture.start();
        fixture.clock.setWallClock(fixture.clock.now() + 3h);
        QCOMPARE(fixture.totals(), QStringLiteral("4 in 100, stored 4 in 100"));
        fixture.clock.setWallClock(fixture.clock.now() - 24h);
        QCOMPARE(fixture.totals(), QStringLiteral("0 in 0, stored 0 in 0"));
        model.focus();
        fixture.clock.setWallClock(fixture.clock.now() + 10min);
        fixture.clock.advance(1s);
        QCOMPARE(model.seconds(), 25 * 60 - 1);
    }
};

static const RegisteredTest<FocusTimerTest> registeredFocusTimerTest;

} // namespace perchly

#include "FocusTimerTest.moc"
