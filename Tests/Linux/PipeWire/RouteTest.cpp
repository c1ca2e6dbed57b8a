#include "SoundMeter.h"
#include "SoundSystem.h"

#include <QSocketNotifier>

#include <unistd.h>

using namespace perchly;

namespace {

/// Frames of the server's cycle.
constexpr std::size_t cycle = 1024;

/// Moves all streams, as a user does. The session manager now and then misses a move, so it tries
/// again.
template <class Condition>
bool moveUntil(const QString &sink, Condition condition) {
    for (int attempt = 0; attempt < 3; ++attempt) {
        const QString streams = output(QStringLiteral("pactl list short sink-inputs"));
        for (const QString &line : streams.split(u'\n', Qt::SkipEmptyParts)) {
            const QString stream = line.section(u'\t', 0, 0);
            output(QStringLiteral("pactl move-sink-input %1 %2").arg(stream, sink));
        }
        if (condition()) {
            return true;
        }
    }
    return false;
}

bool isMovedTo(const QString &sink, SoundMeter &meter) {
    return moveUntil(sink, [&] { return meter.comesTo(toneLevel, 1500); });
}

/// Another program: mutes a process until stdin ends.
int mute(std::int32_t pid) {
    SoundSystem sound;
    QString error;
    const auto route = MixerRoute::make(sound.system, sound.waitForProcess(pid), error);
    route->setGain(0);
    const QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, qApp, &QCoreApplication::quit);
    return QCoreApplication::exec();
}

enum class Ending { Quit, Kill, PlayerEnds };

} // namespace

Q_DECLARE_METATYPE(Ending)

class RouteTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void levelsAreExactAndAtMostTwoCyclesAreLost_data() {
        QTest::addColumn<bool>("isPulse");
        QTest::newRow("a native client") << false;
        QTest::newRow("a PulseAudio client") << true;
    }

    void levelsAreExactAndAtMostTwoCyclesAreLost() {
        QFETCH(bool, isPulse);
        SoundSystem sound;
        SoundMeter meter(first);
        const auto player = isPulse ? pulsePlayer() : nativePlayer();
        QVERIFY(meter.comesTo(toneLevel));
        meter.clear();
        const auto route = sound.route(*player);
        QTest::qWait(1300); // until the sink may rest
        QVERIFY(route->isRunning());
        QVERIFY(meter.maxSilence() <= 2 * cycle);
        for (const float gain : {0.5F, 0.0F, 1.0F}) {
            route->setGain(gain);
            QVERIFY(meter.comesTo(toneLevel * gain));
        }
        meter.clear();
        route->stop();
        QTest::qWait(500);
        QVERIFY(meter.maxSilence() <= 2 * cycle);
        QVERIFY(meter.comesTo(toneLevel));
        QTRY_COMPARE(tracesOfRoutes(), QString());
    }

    void playerReturnsToItsOutput_data() {
        QTest::addColumn<bool>("isChosen");
        QTest::addColumn<Ending>("ending");
        QTest::newRow("the default, when the program quits") << false << Ending::Quit;
        QTest::newRow("the default, after kill -9") << false << Ending::Kill;
        QTest::newRow("a chosen one, when the program quits") << true << Ending::Quit;
        QTest::newRow("a chosen one, after kill -9") << true << Ending::Kill;
        QTest::newRow("a chosen one, when the player starts again") << true << Ending::PlayerEnds;
    }

    void playerReturnsToItsOutput() {
        QFETCH(bool, isChosen);
        QFETCH(Ending, ending);
        SoundMeter atFirst(first);
        SoundMeter meter(isChosen ? second : first);
        auto player = pulsePlayer();
        QVERIFY(atFirst.comesTo(toneLevel));
        QVERIFY(!isChosen || isMovedTo(second, meter));
        // Twice: as the user has just chosen it, and as the session manager remembers it.
        for (int round = 0; round < 2; ++round) {
            Program owner(QCoreApplication::applicationFilePath(),
                          {QStringLiteral("--mute"), QString::number(player->pid())});
            QVERIFY(meter.comesTo(0, 8000));
            if (ending == Ending::Quit) {
                owner.quit();
            } else if (ending == Ending::Kill) {
                owner.kill();
            } else {
                player->kill();
                player = pulsePlayer();
            }
            QVERIFY(meter.comesTo(toneLevel));
            QVERIFY(atFirst.comesTo(isChosen ? 0 : toneLevel));
            player->kill();
            player = pulsePlayer();
            QVERIFY(meter.comesTo(toneLevel));
        }
        QVERIFY(isMovedTo(first, atFirst)); // so that the next test's player goes by the default
    }

    void otherProgramsAreNotRouted() {
        SoundSystem sound;
        SoundMeter meter(first);
        const auto routed = pulsePlayer();
        QVERIFY(meter.comesTo(toneLevel));
        const auto route = sound.route(*routed, 0);
        QVERIFY(meter.comesTo(0));
        // Another process of the same program, and other kinds.
        for (int round = 0; round < 3; ++round) {
            const auto other = round == 1 ? nativePlayer() : pulsePlayer();
            QVERIFY(meter.comesTo(toneLevel));
            other->kill();
            QVERIFY(meter.comesTo(0));
            // Until the session manager has saved what it learnt.
            QTest::qWait(round == 1 ? 1200 : 0);
        }
    }

    void laterStreamsAndPausesStayRouted() {
        SoundSystem sound;
        SoundMeter meter(first);
        const auto player = nativePlayer();
        const auto route = sound.route(*player, 0.5F);
        QVERIFY(meter.comesTo(toneLevel / 2));
        player->tell("+");
        QVERIFY(meter.comesTo(toneLevel)); // two streams at half their level
        player->tell("--");
        QVERIFY(meter.comesTo(0));
        player->tell("+");
        QVERIFY(meter.comesTo(toneLevel / 2));
        // A short pause, and one after which the session manager suspends idle nodes.
        for (const int milliseconds : {300, 6000}) {
            player->tell("p");
            QVERIFY(meter.comesTo(0));
            QTest::qWait(milliseconds);
            QVERIFY(route->isRunning());
            QTRY_COMPARE(sound.process(player->pid())->isRunningOutput, false);
            player->tell("r");
            QVERIFY(meter.comesTo(toneLevel / 2));
        }
        route->stop();
        QVERIFY(meter.comesTo(toneLevel));
    }

    void movingTheStreamEndsTheRoute() {
        SoundSystem sound;
        SoundMeter atSecond(second);
        const auto player = pulsePlayer();
        const auto route = sound.route(*player);
        QTest::qWait(1500);
        QVERIFY(moveUntil(
            second, [&] { return QTest::qWaitFor([&] { return !route->isRunning(); }, 1500); }));
        route->stop();
        QVERIFY(atSecond.comesTo(toneLevel));
        QVERIFY(moveUntil(first, [&] { return atSecond.comesTo(0, 1500); }));
    }

    void programThatForbidsMovingIsNotRouted() {
        SoundSystem sound;
        const auto player = nativePlayer({QStringLiteral("fixed")});
        const AudioObject process = sound.waitForProcess(player->pid());
        player->tell("p"); // which announces properties again
        QTRY_COMPARE(sound.process(player->pid())->isRunningOutput, false);
        player->tell("r");
        QCOMPARE(sound.waitForProcess(player->pid()), process);
        QString error;
        QVERIFY(!MixerRoute::make(sound.system, process, error));
        QVERIFY(error.startsWith(QStringLiteral("Audio access failed.")));
    }
};

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    if (argc == 3 && qstrcmp(argv[1], "--mute") == 0) {
        return mute(QByteArray(argv[2]).toInt());
    }
    RouteTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "RouteTest.moc"
