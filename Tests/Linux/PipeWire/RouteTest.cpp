#include "SoundMeter.h"
#include "SoundSystem.h"

#include <QTest>

using namespace perchly;

namespace {

const QString first = QStringLiteral("first");
const QString second = QStringLiteral("second");

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

enum class Ending { Quit, Kill, PlayerEnds };

bool isMovedTo(const QString &sink, SoundMeter &meter) {
    return moveUntil(sink, [&] { return meter.comesTo(toneLevel, 1500); });
}

} // namespace

Q_DECLARE_METATYPE(Ending)

class RouteTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void levelsAreExactAndTwoCyclesAreMissingAtMost_data() {
        QTest::addColumn<bool>("isPulse");
        QTest::newRow("a native client") << false;
        QTest::newRow("a PulseAudio client") << true;
    }

    void levelsAreExactAndTwoCyclesAreMissingAtMost() {
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

    void theOwnOutputComesBack_data() {
        QTest::addColumn<bool>("isChosen");
        QTest::addColumn<Ending>("ending");
        QTest::newRow("the default, when the program quits") << false << Ending::Quit;
        QTest::newRow("the default, after kill -9") << false << Ending::Kill;
        QTest::newRow("a chosen one, when the program quits") << true << Ending::Quit;
        QTest::newRow("a chosen one, after kill -9") << true << Ending::Kill;
        QTest::newRow("a chosen one, when the player starts again") << true << Ending::PlayerEnds;
    }

    void theOwnOutputComesBack() {
        QFETCH(bool, isChosen);
        QFETCH(Ending, ending);
        SoundMeter atFirst(first);
        SoundMeter meter(isChosen ? second : first);
        auto player = pulsePlayer();
        QVERIFY(atFirst.comesTo(toneLevel));
        QVERIFY(!isChosen || isMovedTo(second, meter));
        // Twice: as the user has just chosen it, and as the session manager remembers it.
        for (int round = 0; round < 2; ++round) {
            const auto owner = routeOwner(*player);
            QVERIFY(owner->waitForLine());
            QVERIFY(meter.comesTo(0));
            if (ending == Ending::Quit) {
                owner->quit();
            } else if (ending == Ending::Kill) {
                owner->kill();
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

    void otherProgramsStayOut() {
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
            QTest::qWait(round == 1 ? 1200
                                    : 0); // until the session manager has saved what it learnt
        }
        route->stop();
        routed->kill();
        const auto next = pulsePlayer();
        QVERIFY(meter.comesTo(toneLevel));
        QTRY_COMPARE(tracesOfRoutes(), QString());
    }

    void streamsOpenedLaterAreRoutedToo() {
        SoundSystem sound;
        SoundMeter meter(first);
        const auto player = nativePlayer();
        player->tell("+");
        QTRY_VERIFY(meter.level() > toneLevel);
        const auto route = sound.route(*player, 0);
        QVERIFY(meter.comesTo(0));
        player->tell("+");
        QTest::qWait(300);
        QVERIFY(meter.comesTo(0));
        player->tell("---");
        QTest::qWait(200);
        player->tell("+");
        QTest::qWait(300);
        QVERIFY(meter.comesTo(0));
        route->setGain(0.5F);
        QVERIFY(meter.comesTo(toneLevel / 2));
        QVERIFY(route->isRunning());
        route->stop();
        QVERIFY(meter.comesTo(toneLevel));
    }

    void aPauseIsSurvived() {
        SoundSystem sound;
        SoundMeter meter(first);
        const auto player = nativePlayer();
        const auto route = sound.route(*player, 0.5F);
        QVERIFY(meter.comesTo(toneLevel / 2));
        // A short one, and one after which the session manager puts what is idle to sleep.
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
    }

    void aMoveByTheUserEndsTheRoute() {
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

    void aProgramThatForbidsMovingIsNotRouted() {
        SoundSystem sound;
        const auto player = nativePlayer({QStringLiteral("fixed")});
        const AudioObject process = sound.waitForProcess(player->pid());
        player->tell("p"); // which announces properties again
        QTRY_COMPARE(sound.process(player->pid())->isRunningOutput, false);
        player->tell("r");
        QCOMPARE(sound.waitForProcess(player->pid()), process);
        QString error;
        QVERIFY(!MixerRoute::make(sound.system, process, error));
        QCOMPARE(error,
                 QStringLiteral("Audio access failed. Allow Perchly in System Settings → Privacy "
                                "& Security → Screen & System Audio Recording, then retry "
                                "(-1)."));
    }
};

QTEST_GUILESS_MAIN(RouteTest)
#include "RouteTest.moc"
