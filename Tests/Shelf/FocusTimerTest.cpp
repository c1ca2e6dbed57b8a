#include "FocusFixture.h"
#include "TestRegistry.h"

#include <QSignalSpy>
#include <QTest>

namespace perchly {

namespace {

constexpr int maxMinutes = std::numeric_limits<int>::max() / 60;

void perform(FocusFixture &fixture, const QString &steps) {
    for (const QString &step : steps.split(QStringLiteral(", "))) {
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

QString state(const FocusFixture &fixture) {
    const ShelfModel &model = *fixture.model;
    return QStringLiteral("%1%2 %3 (%4), %5 sessions, %6 beeps")
        .arg(model.running() ? QStringLiteral("runs") : QStringLiteral("rests"))
        .arg(model.quietFocus() ? QStringLiteral(" quietly") : QString())
        .arg(model.seconds())
        .arg(model.isBreak() ? QStringLiteral("break: ") + model.activity() : model.activity())
        .arg(model.todaySessions())
        .arg(fixture.sound.played);
}

} // namespace

class FocusTimerTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void states_data() {
        QTest::addColumn<QString>("expected");
        const auto row = [](const char *steps, const char *expected) {
            QTest::newRow(steps) << QString::fromLatin1(expected);
        };
        row("pause, end", "rests 0 (Ready when you are), 0 sessions, 0 beeps");
        row("focus, a minute, focus", "runs quietly 1500 (Focus session), 0 sessions, 0 beeps");
        row("focus, a minute, end", "rests 0 (Ready when you are), 0 sessions, 0 beeps");
        row("focus, an hour, pause, an hour", "rests 0 (Focus complete), 1 sessions, 1 beeps");
        row("focus, a minute, break, an hour",
            "rests 0 (break: Break complete), 0 sessions, 1 beeps");
        row("break, a minute, focus, an hour", "rests 0 (Focus complete), 1 sessions, 1 beeps");
        row("focus, a minute, pause, an hour, pause",
            "runs quietly 1440 (Focus session), 0 sessions, 0 beeps");
        row("focus, a minute, pause, an hour, pause, an hour",
            "rests 0 (Focus complete), 1 sessions, 1 beeps");
        row("break, a minute, pause, an hour, pause, a minute",
            "runs 180 (break: Break), 0 sessions, 0 beeps");
        row("focus, a minute, pause, end, pause",
            "rests 0 (Ready when you are), 0 sessions, 0 beeps");
    }

    void states() {
        FocusFixture fixture;
        fixture.start().setQuietFocus(true);
        perform(fixture, QString::fromLatin1(QTest::currentDataTag()));
        QTEST(state(fixture), "expected");
        QCOMPARE(fixture.model->deadline().has_value(), fixture.model->running());
    }

    void lengths_data() {
        QTest::addColumn<PreferenceValue>("stored");
        QTest::addColumn<int>("focusMinutes");
        QTest::addColumn<int>("breakMinutes");
        const auto row = [](const char *name, const PreferenceValue &stored, int focus, int pause) {
            QTest::newRow(name) << stored << focus << pause;
        };
        row("a whole number", 50.0, 50, 50);
        row("negative", -7.0, 1, 1);
        row("a fraction", 12.5, 25, 5);
        row("a string", QStringLiteral("50"), 25, 5);
        row("too many seconds for an int", maxMinutes + 1.0, maxMinutes, maxMinutes);
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
        model.focus();
        QCOMPARE(model.seconds(), focusMinutes * 60);
        fixture.preferences.setNumber(keys::focusMinutes, 10);
        QCOMPARE(model.plannedMinutes(), focusMinutes); // credit is the length at the start
    }

    void pausingRoundsUpAndLateTicksDoNotAddUp() {
        FocusFixture fixture;
        ShelfModel &model = fixture.start();
        model.focus();
        fixture.clock.sleepFor(90'300ms);
        fixture.clock.advance(1s);
        QCOMPARE(model.seconds(), 1409); // of 1408.7
        model.togglePause();
        QCOMPARE(model.seconds(), 1409);
        fixture.clock.advance(10min);
        model.togglePause();
        fixture.clock.sleepFor(26min);
        model.togglePause(); // after the deadline, before a tick
        model.togglePause();
        QVERIFY(!model.running() && model.seconds() == 0);
    }

    void settingTheWallClockMovesTheRemainder_data() {
        QTest::addColumn<int>("minutes");
        QTest::addColumn<int>("seconds");
        QTest::newRow("forward") << 10 << 15 * 60 - 1;
        QTest::newRow("a year back") << -60 * 24 * 365 << (60 * 24 * 365 + 25) * 60 - 1;
        QTest::newRow("past the deadline") << 26 << 0;
    }

    void settingTheWallClockMovesTheRemainder() {
        QFETCH(int, minutes);
        FocusFixture fixture;
        fixture.start().focus();
        fixture.clock.setWallClock(fixture.clock.now() + std::chrono::minutes(minutes));
        fixture.clock.advance(1s);
        QTEST(fixture.model->seconds(), "seconds");
    }

    void itWakesEachSecondOnlyWhileItRuns() {
        FocusFixture fixture;
        ShelfModel &model = fixture.start();
        const QSignalSpy seconds(&model, &ShelfModel::secondsChanged);
        model.focus();
        QCOMPARE(fixture.clock.scheduledTasks(), 1);
        const auto before = seconds.size();
        fixture.clock.advance(10s);
        QCOMPARE(seconds.size(), before + 10);
        model.togglePause();
        const auto paused = seconds.size();
        QCOMPARE(fixture.clock.scheduledTasks(), 1); // the end of the day
        fixture.clock.advance(1h);
        QCOMPARE(seconds.size(), paused);
    }
};

static const RegisteredTest<FocusTimerTest> registeredFocusTimerTest;

} // namespace perchly

#include "FocusTimerTest.moc"
