#include "SoundMeter.h"
#include "SoundSystem.h"

#include <QRegularExpression>
#include <QSocketNotifier>

#include <unistd.h>

using namespace perchly;

namespace {

/// Frames per cycle of the server.
constexpr std::size_t cycle = 1024;

/// Moves all streams, as a user does. Not with pactl: the command is lost if pactl ends before its
/// server has passed it on.
void moveTo(const QString &sink) {
    const QString sinks = output(QStringLiteral("pactl list short sinks"));
    const QString serial = sinks.section(u'\t' + sink, 0, 0).section(u'\n', -1);
    static const QRegularExpression id(QStringLiteral("object\\.id = \"(\\d+)\""));
    auto found = id.globalMatch(output(QStringLiteral("pactl list sink-inputs")));
    while (found.hasNext()) {
        output(QStringLiteral("pw-metadata %1 target.object %2 Spa:Id")
                   .arg(found.next().captured(1), serial));
    }
}

/// Acts as another program that mutes a process until stdin ends.
int mute(std::int32_t pid) {
    SoundSystem sound;
    QString error;
    const auto route = MixerRoute::make(sound.system, sound.waitForProcess(pid), error);
    route->setGain(0);
    const QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, QCoreApplication::instance(),
                     &QCoreApplication::quit);
    return QCoreApplication::exec();
}

enum class Ending { Quit, Kill, PlayerEnds };

} // namespace

class RouteTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void levelsAreExactAndAtMostTwoCyclesAreLost() {
        for (const bool isPulse : {false, true}) {
            SoundSystem sound;
            SoundMeter meter(first);
            const auto player = isPulse ? pulsePlayer() : nativePlayer();
            QVERIFY(meter.comesTo(toneLevel));
            meter.clear();
            const auto route = sound.route(player);
            QTest::qWait(1300); // until the sink may idle
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
    }

    void playerReturnsToItsOutput() {
        SoundMeter atFirst(first);
        SoundMeter atSecond(second);
        auto player = pulsePlayer();
        QVERIFY(atFirst.comesTo(toneLevel));
        for (const bool isChosen : {false, true}) {
            SoundMeter &meter = isChosen ? atSecond : atFirst;
            if (isChosen) {
                moveTo(second);
                QVERIFY(meter.comesTo(toneLevel));
            }
            // First with the user's choice, then with the session manager's memory of it.
            for (const Ending ending :
                 {Ending::Kill, Ending::Quit, Ending::PlayerEnds, Ending::Kill}) {
                const Program owner =
                    startProgram(QCoreApplication::applicationFilePath(),
                                 {QStringLiteral("--mute"), QString::number(player->processId())});
                QVERIFY(meter.comesTo(0, 8000));
                if (ending == Ending::Quit) {
                    owner->closeWriteChannel();
                    QVERIFY(owner->waitForFinished());
                } else if (ending == Ending::Kill) {
                    owner->kill();
                } else {
                    player = pulsePlayer();
                }
                QVERIFY(meter.comesTo(toneLevel));
                QVERIFY(atFirst.comesTo(isChosen ? 0 : toneLevel));
                player = pulsePlayer();
                QVERIFY(meter.comesTo(toneLevel));
            }
        }
        moveTo(first); // so that the next test's player uses the default
        QVERIFY(atFirst.comesTo(toneLevel));
    }

    void otherProgramsAreNotRouted() {
        SoundSystem sound;
        SoundMeter meter(first);
        const auto routed = pulsePlayer();
        QVERIFY(meter.comesTo(toneLevel));
        const auto route = sound.route(routed, 0);
        QVERIFY(meter.comesTo(0));
        // Another process of the same program, and a native client.
        for (int round = 0; round < 3; ++round) {
            const auto other = round == 1 ? nativePlayer() : pulsePlayer();
            QVERIFY(meter.comesTo(toneLevel));
            other->kill();
            QVERIFY(meter.comesTo(0));
            // Until the session manager has saved its state.
            QTest::qWait(round == 1 ? 1200 : 0);
        }
    }

    void newAndPausedStreamsStayRouted() {
        SoundSystem sound;
        SoundMeter meter(first);
        const auto player = nativePlayer();
        const auto route = sound.route(player, 0.5F);
        QVERIFY(meter.comesTo(toneLevel / 2));
        player->write("+");
        QVERIFY(meter.comesTo(toneLevel)); // two streams at half level
        player->write("--");
        QVERIFY(meter.comesTo(0));
        player->write("+");
        QVERIFY(meter.comesTo(toneLevel / 2));
        // A short pause, and one after which the session manager suspends idle nodes.
        for (const int milliseconds : {300, 6000}) {
            player->write("p");
            QVERIFY(meter.comesTo(0));
            QTest::qWait(milliseconds);
            QVERIFY(route->isRunning());
            QTRY_COMPARE(sound.process(player->processId())->isRunningOutput, false);
            player->write("r");
            QVERIFY(meter.comesTo(toneLevel / 2));
        }
        route->stop();
        QVERIFY(meter.comesTo(toneLevel));
    }

    void movingTheStreamEndsTheRoute() {
        SoundSystem sound;
        SoundMeter atSecond(second);
        const auto player = pulsePlayer();
        const auto route = sound.route(player);
        QTest::qWait(1500);
        moveTo(second);
        QTRY_VERIFY(!route->isRunning());
        route->stop();
        QVERIFY(atSecond.comesTo(toneLevel));
        moveTo(first);
        QVERIFY(atSecond.comesTo(0));
    }

    void fixedStreamsAreNotRouted() {
        SoundSystem sound;
        const auto player = nativePlayer({QStringLiteral("fixed")});
        QString error;
        QVERIFY(!MixerRoute::make(sound.system, sound.waitForProcess(player->processId()), error));
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
