#include "Announcements.h"
#include "FocusFixture.h"
#include "TestRegistry.h"

#include <QTest>

namespace perchly {

namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr int longestMinutes = std::numeric_limits<int>::max() / 60;

void perform(FocusFixture &fixture, const QString &step) {
    if (step == QLatin1StringView("focus")) {
        fixture.model->focus();
    } else if (step == QLatin1StringView("break")) {
        fixture.model->startBreak();
    } else if (step == QLatin1StringView("pause")) {
        fixture.model->togglePause();
    } else if (step == QLatin1StringView("end")) {
        fixture.model->endFocus();
    } else if (step == QLatin1StringView("a minute")) {
        fixture.clock.advance(1min);
    } else if (step == QLatin1StringView("an hour")) {
        fixture.clock.advance(1h);
    } else {
        QFAIL("an unknown step");
    }
}

} // namespace

class FocusTimerTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void states_data() {
        QTest::addColumn<QString>("steps");
        QTest::addColumn<bool>("running");
        QTest::addColumn<int>("seconds");
        QTest::addColumn<bool>("isBreak");
        QTest::addColumn<QString>("activity");
        QTest::addColumn<int>("sessions");
        QTest::addColumn<int>("beeps");
        const auto row = [](const char *name, const char *steps, bool running, int seconds,
                            bool isBreak, const char *activity, int sessions, int beeps) {
            QTest::newRow(name) << QString::fromUtf8(steps) << running << seconds << isBreak
                                << QString::fromUtf8(activity) << sessions << beeps;
        };
        const char *ready = "Ready when you are";

        row("nothing was started", "", false, 0, false, ready, 0, 0);
        row("pausing nothing does nothing", "pause", false, 0, false, ready, 0, 0);
        row("ending nothing does nothing", "end", false, 0, false, ready, 0, 0);

        row("a session is 25 minutes", "focus", true, 1500, false, "Focus session", 0, 0);
        row("a session counts down", "focus, a minute", true, 1440, false, "Focus session", 0, 0);
        row("a session is started anew while one runs", "focus, a minute, focus", true, 1500, false,
            "Focus session", 0, 0);
        row("a session that is ended gives no credit", "focus, a minute, end", false, 0, false,
            ready, 0, 0);
        row("a session completes once", "focus, an hour", false, 0, false, "Focus complete", 1, 1);
        row("a completed session cannot be resumed", "focus, an hour, pause, an hour", false, 0,
            false, "Focus complete", 1, 1);
        row("ending after completion clears the line and keeps the credit", "focus, an hour, end",
            false, 0, false, ready, 1, 1);
        row("a second session adds up", "focus, an hour, focus, an hour", false, 0, false,
            "Focus complete", 2, 2);

        row("a break is five minutes", "break", true, 300, true, "Break", 0, 0);
        row("a break completes without credit", "break, an hour", false, 0, true, "Break complete",
            0, 1);
        row("a break during a session ends it without credit", "focus, a minute, break, an hour",
            false, 0, true, "Break complete", 0, 1);
        row("a break is started anew while one runs", "break, a minute, break", true, 300, true,
            "Break", 0, 0);
        row("a session during a break ends the break", "break, a minute, focus, an hour", false, 0,
            false, "Focus complete", 1, 1);
        row("a session after a completed break is no break", "break, an hour, focus", true, 1500,
            false, "Focus session", 0, 1);
        row("an ended break remains the last kind of countdown", "break, end", false, 0, true,
            ready, 0, 0);

        row("a pause freezes the remainder", "focus, a minute, pause, an hour", false, 1440, false,
            "Focus session", 0, 0);
        row("a paused session goes on where it was", "focus, a minute, pause, an hour, pause", true,
            1440, false, "Focus session", 0, 0);
        row("a paused session completes later", "focus, a minute, pause, an hour, pause, an hour",
            false, 0, false, "Focus complete", 1, 1);
        row("a paused break goes on as a break", "break, a minute, pause, an hour, pause, a minute",
            true, 180, true, "Break", 0, 0);
        row("a session that ends while paused is gone", "focus, a minute, pause, end, pause", false,
            0, false, ready, 0, 0);
        row("a session starts anew from a pause", "focus, a minute, pause, focus", true, 1500,
            false, "Focus session", 0, 0);
        row("a break starts from a paused session", "focus, a minute, pause, break", true, 300,
            true, "Break", 0, 0);
    }

    void states() {
        QFETCH(QString, steps);
        QFETCH(bool, running);
        QFETCH(int, seconds);
        QFETCH(bool, isBreak);
        QFETCH(QString, activity);
        QFETCH(int, sessions);
        QFETCH(int, beeps);
        FocusFixture fixture;
        const ShelfModel &model = fixture.start();
        for (const QString &step : steps.split(QStringLiteral(", "), Qt::SkipEmptyParts)) {
            perform(fixture, step);
        }
        QCOMPARE(model.running(), running);
        QCOMPARE(model.seconds(), seconds);
        QCOMPARE(model.isBreak(), isBreak);
        QCOMPARE(model.activity(), activity);
        QCOMPARE(fixture.sound.played, beeps);
        QCOMPARE(model.deadline().has_value(), running);
        QCOMPARE(fixture.totals(), totalsText(sessions, sessions * 25));
    }

    void lengths_data() {
        QTest::addColumn<PreferenceValue>("stored");
        QTest::addColumn<int>("focusMinutes");
        QTest::addColumn<int>("breakMinutes");
        const auto row = [](const char *name, const PreferenceValue &stored, int focus, int pause) {
            QTest::newRow(name) << stored << focus << pause;
        };
        row("a whole number counts", 50.0, 50, 50);
        row("zero counts as one minute", 0.0, 1, 1);
        row("a negative number counts as one minute", -7.0, 1, 1);
        row("a hugely negative number counts as one minute", -1e15, 1, 1);
        row("a fraction gives the default", 12.5, 25, 5);
        row("a fraction below one gives the default", 0.5, 25, 5);
        row("a boolean gives the default", true, 25, 5);
        row("a string gives the default", QStringLiteral("50"), 25, 5);
        row("data gives the default", QByteArray("50"), 25, 5);
        row("not a number gives the default", notANumber, 25, 5);
        row("infinity gives the default", infinite, 25, 5);
        row("a number beyond what seconds can count is limited", 1e12, longestMinutes,
            longestMinutes);
        row("the first number whose seconds overflow is limited", longestMinutes + 1.0,
            longestMinutes, longestMinutes);
    }

    void lengths() {
        QFETCH(PreferenceValue, stored);
        QFETCH(int, focusMinutes);
        QFETCH(int, breakMinutes);
        FocusFixture fixture;
        fixture.preferences.values[keys::focusMinutes] = stored;
        fixture.preferences.values[keys::breakMinutes] = stored;
        ShelfModel &model = fixture.start();

        model.startBreak();
        QCOMPARE(model.seconds(), breakMinutes * 60);
        QCOMPARE(model.plannedMinutes(), 25);
        model.focus();
        QCOMPARE(model.seconds(), focusMinutes * 60);
        QCOMPARE(model.plannedMinutes(), focusMinutes);
        QVERIFY(model.deadline() == fixture.clock.now() + std::chrono::minutes(focusMinutes));

        fixture.clock.advance(1s);
        model.togglePause();
        QCOMPARE(model.seconds(), focusMinutes * 60 - 1);
        model.togglePause();
        QVERIFY(model.deadline() == fixture.clock.now() + std::chrono::seconds(model.seconds()));
    }

    void pausingRoundsTheRemainderUp() {
        FocusFixture fixture;
        ShelfModel &model = fixture.start();
        model.focus();
        fixture.clock.advance(1500s - 600'400ms);
        model.togglePause();
        QCOMPARE(model.seconds(), 601);
        fixture.clock.advance(10min);
        model.togglePause();
        QVERIFY(model.deadline() == fixture.clock.now() + 601s);
        fixture.clock.advance(601s);
        QCOMPARE(fixture.totals(), totalsText(1, 25));
    }

    void lateTicksDoNotAddUp() {
        FocusFixture fixture;
        ShelfModel &model = fixture.start();
        model.focus();
        fixture.clock.sleepFor(300ms);
        fixture.clock.advance(1s);
        QCOMPARE(model.seconds(), 1499); // of 1498.7
        fixture.clock.sleepFor(90s);
        fixture.clock.advance(1s);
        QCOMPARE(model.seconds(), 1408); // of 1407.7
    }

    void aPauseAfterTheDeadlineLeavesNothingToResume() {
        FocusFixture fixture;
        ShelfModel &model = fixture.start();
        model.focus();
        fixture.clock.sleepFor(26min);
        model.togglePause();
        QCOMPARE(model.seconds(), 0);
        model.togglePause();
        QVERIFY(!model.running());
        QVERIFY(!model.deadline());
    }

    void creditIsTheLengthAtTheStart() {
        FocusFixture fixture;
        fixture.preferences.setNumber(keys::focusMinutes, 50);
        ShelfModel &model = fixture.start();
        model.focus();
        fixture.preferences.setNumber(keys::focusMinutes, 10);
        fixture.clock.advance(20min);
        model.togglePause();
        model.togglePause();
        QCOMPARE(model.seconds(), 30 * 60);
        fixture.clock.advance(30min);
        QCOMPARE(fixture.totals(), totalsText(1, 50));
    }

    void aWallClockThatIsSetMovesTheRemainder_data() {
        QTest::addColumn<int>("minutesSet");
        QTest::addColumn<int>("seconds");
        QTest::newRow("set forward, less remains") << 10 << 15 * 60 - 1;
        QTest::newRow("set back, more remains") << -10 << 35 * 60 - 1;
        QTest::newRow("set far back, the count neither overflows nor completes")
            << -60 * 24 * 365 << (60 * 24 * 365 + 25) * 60 - 1;
        QTest::newRow("set forward past the deadline, it completes") << 26 << 0;
    }

    void aWallClockThatIsSetMovesTheRemainder() {
        QFETCH(int, minutesSet);
        QFETCH(int, seconds);
        FocusFixture fixture;
        ShelfModel &model = fixture.start();
        model.focus();
        fixture.clock.setWallClock(fixture.clock.now() + std::chrono::minutes(minutesSet));
        fixture.clock.advance(1s);
        QCOMPARE(model.seconds(), seconds);
        QCOMPARE(model.running(), seconds > 0);
        QCOMPARE(fixture.sound.played, seconds > 0 ? 0 : 1);
    }

    void quietEnds_data() {
        QTest::addColumn<QString>("steps");
        QTest::addColumn<bool>("quiet");
        QTest::newRow("a started session is quiet") << QStringLiteral("focus") << true;
        QTest::newRow("it stays quiet through a pause")
            << QStringLiteral("focus, a minute, pause, a minute, pause, a minute") << true;
        QTest::newRow("ending it ends the quiet") << QStringLiteral("focus, end") << false;
        QTest::newRow("completing it ends the quiet") << QStringLiteral("focus, an hour") << false;
        QTest::newRow("a break ends the quiet") << QStringLiteral("focus, break") << false;
    }

    void quietEnds() {
        QFETCH(QString, steps);
        QFETCH(bool, quiet);
        FocusFixture fixture;
        ShelfModel &model = fixture.start();
        model.setQuietFocus(true);
        for (const QString &step : steps.split(QStringLiteral(", "))) {
            perform(fixture, step);
        }
        QCOMPARE(model.quietFocus(), quiet);
    }

    void aCompletedBreakEndsTheQuietToo() {
        FocusFixture fixture;
        ShelfModel &model = fixture.start();
        model.startBreak();
        model.setQuietFocus(true);
        fixture.clock.advance(5min);
        QVERIFY(!model.quietFocus());
    }

    void nothingHappensWhileNoCountdownRuns_data() {
        QTest::addColumn<QString>("steps");
        QTest::newRow("when nothing was started") << QString();
        QTest::newRow("while a session is paused") << QStringLiteral("focus, a minute, pause");
        QTest::newRow("after a session was ended") << QStringLiteral("focus, a minute, end");
        QTest::newRow("after a session completed") << QStringLiteral("focus, an hour");
        QTest::newRow("after a break completed") << QStringLiteral("break, an hour");
    }

    void nothingHappensWhileNoCountdownRuns() {
        QFETCH(QString, steps);
        FocusFixture fixture;
        const ShelfModel &model = fixture.start();
        for (const QString &step : steps.split(QStringLiteral(", "), Qt::SkipEmptyParts)) {
            perform(fixture, step);
        }
        Announcements announcements(model);
        fixture.preferences.written.clear();
        const auto untilMidnight = std::chrono::ceil<std::chrono::milliseconds>(
            fixture.clock.startOfNextDay() - fixture.clock.now());

        QCOMPARE(fixture.clock.scheduledTasks(), 1);
        fixture.clock.advance(untilMidnight - 1ms);
        QCOMPARE(announcements.take(), QStringList());
        QCOMPARE(fixture.preferences.written, QStringList());

        fixture.clock.advance(1ms);
        QCOMPARE(fixture.totals(), totalsText(0, 0));
        QCOMPARE(fixture.clock.scheduledTasks(), 1);
    }

    void aCountdownWakesOncePerSecond() {
        FocusFixture fixture;
        ShelfModel &model = fixture.start();
        model.focus();
        QCOMPARE(fixture.clock.scheduledTasks(), 1);
        Announcements announcements(model);
        fixture.clock.advance(10s);
        QCOMPARE(announcements.take().count(QStringLiteral("secondsChanged")), 10);
        QCOMPARE(model.seconds(), 1490);
    }

    void aModelThatIsGoneIsLeftAlone() {
        FocusFixture fixture;
        fixture.start().focus();
        fixture.model.reset();
        QCOMPARE(fixture.clock.scheduledTasks(), 0);
        fixture.preferences.written.clear();
        fixture.clock.advance(24h);
        QCOMPARE(fixture.sound.played, 0);
        QCOMPARE(fixture.preferences.written, QStringList());
    }
};

static const RegisteredTest<FocusTimerTest> registered;

} // namespace perchly

#include "FocusTimerTest.moc"
