#include "Announcements.h"
#include "FocusFixture.h"
#include "TestRegistry.h"

#include <QTest>

namespace perchly {

namespace {

constexpr int longestMinutes = std::numeric_limits<int>::max() / 60;

void perform(FocusFixture &fixture, const QString &steps) {
    for (const QString &step : steps.split(QStringLiteral(", "), Qt::SkipEmptyParts)) {
        if (step == QLatin1StringView("focus")) {
            fixture.model->focus();
        } else if (step == QLatin1StringView("break")) {
            fixture.model->startBreak();
        } else if (step == QLatin1StringView("pause")) {
            fixture.model->togglePause();
        } else if (step == QLatin1StringView("end")) {
            fixture.model->endFocus();
        } else {
            fixture.clock.advance(step == QLatin1StringView("a minute") ? 1min : 60min);
        }
    }
}

/// All that the person sees and hears of it, and the day's credit.
QString state(const FocusFixture &fixture) {
    const ShelfModel &model = *fixture.model;
    return QStringLiteral("%1%2 %3 (%4), %5, %6 beeps")
        .arg(model.running() ? QStringLiteral("runs") : QStringLiteral("rests"))
        .arg(model.quietFocus() ? QStringLiteral(" quietly") : QString())
        .arg(model.seconds())
        .arg(model.isBreak() ? QStringLiteral("break: ") + model.activity() : model.activity(),
             fixture.totals())
        .arg(fixture.sound.played);
}

} // namespace

class FocusTimerTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void states_data() {
        QTest::addColumn<QString>("steps");
        QTest::addColumn<QString>("expected");
        const auto row =
            [](const char *name, const char *steps, const char *shown, int sessions, int beeps) {
                QTest::newRow(name)
                    << QString::fromUtf8(steps)
                    << QStringLiteral("%1, %2, %3 beeps")
                           .arg(QString::fromUtf8(shown), totalsText(sessions, sessions * 25))
                           .arg(beeps);
            };
        row("what was not started is neither paused nor ended", "pause, end",
            "rests 0 (Ready when you are)", 0, 0);
        row("a session is started anew while one runs", "focus, a minute, focus",
            "runs quietly 1500 (Focus session)", 0, 0);
        row("a session that is ended gives no credit", "focus, a minute, end",
            "rests 0 (Ready when you are)", 0, 0);
        row("a completed session cannot be resumed", "focus, an hour, pause, an hour",
            "rests 0 (Focus complete)", 1, 1);
        row("a second session adds up", "focus, an hour, end, focus, an hour",
            "rests 0 (Focus complete)", 2, 2);
        row("a break during a session ends it without credit", "focus, a minute, break, an hour",
            "rests 0 (break: Break complete)", 0, 1);
        row("a session during a break ends the break", "break, a minute, focus, an hour",
            "rests 0 (Focus complete)", 1, 1);
        row("an ended break remains the last kind of countdown", "break, end",
            "rests 0 (break: Ready when you are)", 0, 0);
        row("a paused session goes on where it was", "focus, a minute, pause, an hour, pause",
            "runs quietly 1440 (Focus session)", 0, 0);
        row("a paused session completes later", "focus, a minute, pause, an hour, pause, an hour",
            "rests 0 (Focus complete)", 1, 1);
        row("a paused break goes on as a break", "break, a minute, pause, an hour, pause, a minute",
            "runs 180 (break: Break)", 0, 0);
        row("a session that ends while paused is gone", "focus, a minute, pause, end, pause",
            "rests 0 (Ready when you are)", 0, 0);
    }

    void states() {
        QFETCH(QString, steps);
        FocusFixture fixture;
        ShelfModel &model = fixture.start();
        model.setQuietFocus(true);
        perform(fixture, steps);
        QTEST(state(fixture), "expected");
        QCOMPARE(model.deadline().has_value(), model.running());
    }

    void lengths_data() {
        QTest::addColumn<PreferenceValue>("stored");
        QTest::addColumn<int>("focusMinutes");
        QTest::addColumn<int>("breakMinutes");
        const auto row = [](const char *name, const PreferenceValue &stored, int focus, int pause) {
            QTest::newRow(name) << stored << focus << pause;
        };
        row("a whole number counts", 50.0, 50, 50);
        row("a negative number counts as one minute", -7.0, 1, 1);
        row("a fraction gives the default", 12.5, 25, 5);
        row("not a number gives the default", std::numeric_limits<double>::quiet_NaN(), 25, 5);
        row("a string gives the default", QStringLiteral("50"), 25, 5);
        row("a boolean gives the default", true, 25, 5);
        row("the first number whose seconds overflow is limited", longestMinutes + 1.0,
            longestMinutes, longestMinutes);
        row("a number beyond 64 bits gives the default", 1e300, 25, 5);
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
        fixture.clock.sleepFor(90'300ms);
        fixture.clock.advance(1s);
        QCOMPARE(model.seconds(), 1409); // of 1408.7
    }

    void aPauseAfterTheDeadlineLeavesNothingToResume() {
        FocusFixture fixture;
        ShelfModel &model = fixture.start();
        model.focus();
        fixture.clock.sleepFor(26min);
        model.togglePause();
        QCOMPARE(model.seconds(), 0);
        model.togglePause();
        QVERIFY(!model.running() && !model.deadline());
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
        fixture.clock.advance(30min);
        QCOMPARE(fixture.totals(), totalsText(1, 50));
    }

    void aWallClockThatIsSetMovesTheRemainder_data() {
        QTest::addColumn<int>("minutesSet");
        QTest::addColumn<int>("seconds");
        QTest::newRow("set forward, less remains") << 10 << 15 * 60 - 1;
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
        QCOMPARE(fixture.sound.played, seconds > 0 ? 0 : 1);
    }

    void nothingHappensWhileNoCountdownRuns_data() {
        QTest::addColumn<QString>("steps");
        QTest::newRow("while a session is paused") << QStringLiteral("focus, a minute, pause");
        QTest::newRow("after a break completed") << QStringLiteral("break, an hour");
    }

    void nothingHappensWhileNoCountdownRuns() {
        QFETCH(QString, steps);
        FocusFixture fixture;
        const ShelfModel &model = fixture.start();
        perform(fixture, steps);
        Announcements announcements(model);
        fixture.preferences.written.clear();
        QCOMPARE(fixture.clock.scheduledTasks(), 1); // the end of the day
        fixture.clock.advance(1h);
        QCOMPARE(announcements.take(), QStringList());
        QCOMPARE(fixture.preferences.written, QStringList());
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
};

static const RegisteredTest<FocusTimerTest> registeredFocusTimerTest;

} // namespace perchly

#include "FocusTimerTest.moc"
