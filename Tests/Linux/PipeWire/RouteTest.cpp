#include "MixerError.h"
#include "SoundMeter.h"
#include "SoundSystem.h"

#include <QTest>

using namespace perchly;

namespace {

const QString first = QStringLiteral("first");
const QString second = QStringLiteral("second");

/// Frames of the server's cycle.
constexpr std::size_t cycle = 1024;

/// What the tools of the sound system do on the person's behalf.
void moveTo(const QString &output) {
    const QString streams =
        told(QStringLiteral("pactl"),
             {QStringLiteral("list"), QStringLiteral("short"), QStringLiteral("sink-inputs")});
    for (const QString &line : streams.split(u'\n', Qt::SkipEmptyParts)) {
        told(QStringLiteral("pactl"),
             {QStringLiteral("move-sink-input"), line.section(u'\t', 0, 0), output});
    }
}

/// The session manager now and then misses a move, so the person tries again.
template <class Condition>
bool moveUntil(const QString &output, Condition condition) {
    for (int attempt = 0; attempt < 3; ++attempt) {
        moveTo(output);
        if (condition()) {
            return true;
        }
    }
    return false;
}

enum class Ending { Quit, Kill, PlayersEnd };

bool isMovedTo(const QString &output, SoundMeter &meter) {
    return moveUntil(output, [&] { return meter.comesTo(toneLevel, 1500); });
}

} // namespace

Q_DECLARE_METATYPE(Ending)

class RouteTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void levelsAreExactAndNoMoreThanTwoCyclesAreMissing_data();
    void levelsAreExactAndNoMoreThanTwoCyclesAreMissing();
    void theOwnOutputComesBackHoweverTheProgramEnds_data();
    void theOwnOutputComesBackHoweverTheProgramEnds();
    void anOutputThatThePersonChoseComesBack_data();
    void anOutputThatThePersonChoseComesBack();
    void otherProgramsStayOut();
    void streamsOpenedLaterAreRoutedToo();
    void aPauseIsSurvived();
    void everyFormatIsRouted_data();
    void everyFormatIsRouted();
    void thePersonsOwnMoveEndsTheRoute();
    void aProgramThatForbidsItIsNotRouted();
};

void RouteTest::levelsAreExactAndNoMoreThanTwoCyclesAreMissing_data() {
    QTest::addColumn<bool>("isPulse");
    QTest::newRow("a native client") << false;
    QTest::newRow("a PulseAudio client") << true;
}

void RouteTest::levelsAreExactAndNoMoreThanTwoCyclesAreMissing() {
    QFETCH(bool, isPulse);
    SoundSystem sound;
    SoundMeter meter(first);
    const auto player = isPulse ? pulsePlayer() : nativePlayer();
    QVERIFY(meter.comesTo(toneLevel));
    meter.clear();
    const auto route = sound.route(*player);
    QTest::qWait(1300); // until the sink may rest
    QVERIFY(route->isRunning());
    QVERIFY(meter.longestSilence() <= 2 * cycle);
    for (const float gain : {0.5F, 0.0F, 1.0F}) {
        perchly_ring_gain(route->ring(), gain);
        QVERIFY(meter.comesTo(toneLevel * gain));
    }
    meter.clear();
    route->stop();
    QTest::qWait(500);
    QVERIFY(meter.longestSilence() <= 2 * cycle);
    QVERIFY(meter.comesTo(toneLevel));
    QTRY_COMPARE(tracesOfRoutes(), QString());
}

void RouteTest::theOwnOutputComesBackHoweverTheProgramEnds_data() {
    QTest::addColumn<bool>("isKilled");
    QTest::addColumn<bool>("isPulse");
    QTest::newRow("quit, with a native client") << false << false;
    QTest::newRow("quit, with a PulseAudio client") << false << true;
    QTest::newRow("kill -9, with a native client") << true << false;
    QTest::newRow("kill -9, with a PulseAudio client") << true << true;
}

void RouteTest::theOwnOutputComesBackHoweverTheProgramEnds() {
    QFETCH(bool, isKilled);
    QFETCH(bool, isPulse);
    SoundMeter meter(first);
    const auto player = isPulse ? pulsePlayer() : nativePlayer();
    QVERIFY(meter.comesTo(toneLevel));
    const auto owner = routeOwner(*player);
    QVERIFY(owner->waitForWord());
    QVERIFY(meter.comesTo(0));
    if (isKilled) {
        owner->kill();
    } else {
        owner->quit();
    }
    QVERIFY(meter.comesTo(toneLevel));
}

void RouteTest::anOutputThatThePersonChoseComesBack_data() {
    QTest::addColumn<Ending>("ending");
    QTest::newRow("when the program quits") << Ending::Quit;
    QTest::newRow("when the program is killed") << Ending::Kill;
    QTest::newRow("when the player ends and starts again") << Ending::PlayersEnd;
}

void RouteTest::anOutputThatThePersonChoseComesBack() {
    QFETCH(Ending, ending);
    SoundMeter atFirst(first);
    SoundMeter atSecond(second);
    auto player = pulsePlayer();
    QVERIFY(atFirst.comesTo(toneLevel));
    QVERIFY(isMovedTo(second, atSecond));
    // Twice: as the person has just chosen it, and as the session manager remembers it.
    for (int round = 0; round < 2; ++round) {
        const auto owner = routeOwner(*player);
        QVERIFY(owner->waitForWord());
        QVERIFY(atSecond.comesTo(0));
        if (ending == Ending::Quit) {
            owner->quit();
        } else if (ending == Ending::Kill) {
            owner->kill();
        } else {
            player->kill();
            player = pulsePlayer();
        }
        QVERIFY(atSecond.comesTo(toneLevel));
        QVERIFY(atFirst.comesTo(0));
        player->kill();
        player = pulsePlayer();
        QVERIFY(atSecond.comesTo(toneLevel));
    }
    // So that the next paplay goes by itself again.
    QVERIFY(isMovedTo(first, atFirst));
}

void RouteTest::otherProgramsStayOut() {
    SoundSystem sound;
    SoundMeter meter(first);
    const auto routed = pulsePlayer();
    QVERIFY(meter.comesTo(toneLevel));
    const auto route = sound.route(*routed);
    perchly_ring_gain(route->ring(), 0);
    QVERIFY(meter.comesTo(0));
    // Another process of the same program, and other kinds.
    for (int round = 0; round < 3; ++round) {
        const auto other = round == 1 ? nativePlayer() : pulsePlayer();
        QVERIFY(meter.comesTo(toneLevel));
        other->kill();
        QVERIFY(meter.comesTo(0));
        QTest::qWait(round == 1 ? 1200 : 0); // until the session manager has saved what it learnt
    }
    route->stop();
    routed->kill();
    const auto next = pulsePlayer();
    QVERIFY(meter.comesTo(toneLevel));
    QTRY_COMPARE(tracesOfRoutes(), QString());
}

void RouteTest::streamsOpenedLaterAreRoutedToo() {
    SoundSystem sound;
    SoundMeter meter(first);
    const auto player = nativePlayer();
    player->tell("+");
    QVERIFY(meter.level() > toneLevel);
    const auto route = sound.route(*player);
    perchly_ring_gain(route->ring(), 0);
    QVERIFY(meter.comesTo(0));
    player->tell("+");
    QTest::qWait(300);
    QVERIFY(meter.comesTo(0));
    player->tell("---");
    QTest::qWait(200);
    player->tell("+");
    QTest::qWait(300);
    QVERIFY(meter.comesTo(0));
    perchly_ring_gain(route->ring(), 0.5F);
    QVERIFY(meter.comesTo(toneLevel / 2));
    QVERIFY(route->isRunning());
    route->stop();
    QVERIFY(meter.comesTo(toneLevel));
}

void RouteTest::aPauseIsSurvived() {
    SoundSystem sound;
    SoundMeter meter(first);
    const auto player = nativePlayer();
    const auto route = sound.route(*player);
    perchly_ring_gain(route->ring(), 0.5F);
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

void RouteTest::everyFormatIsRouted_data() {
    QTest::addColumn<QStringList>("arguments");
    const auto row = [](const char *name, const QStringList &arguments) {
        QTest::newRow(name) << arguments;
    };
    row("mono", {QStringLiteral("Mono"), QStringLiteral("1")});
    row("integers", {QStringLiteral("Integers"), QStringLiteral("2"), QStringLiteral("int16")});
    row("surround", {QStringLiteral("Surround"), QStringLiteral("6")});
    row("a name in another script", {QStringLiteral("音楽 \"♫\" {x}\n")});
    row("no name", {QString()});
}

void RouteTest::everyFormatIsRouted() {
    QFETCH(QStringList, arguments);
    SoundSystem sound;
    SoundMeter meter(first);
    const auto player = nativePlayer(arguments);
    QVERIFY(sound.waitForProcess(player->pid()) != 0);
    QTest::qWait(100);
    const float direct = meter.level();
    QVERIFY(direct > toneLevel / 4);
    const auto route = sound.route(*player);
    perchly_ring_gain(route->ring(), 0.5F);
    QVERIFY(meter.comesTo(direct / 2));
    route->stop();
    QVERIFY(meter.comesTo(direct));
    const auto name = sound.system.application(sound.process(player->pid())->object);
    QVERIFY(arguments.first().isEmpty() || name->name == arguments.first());
}

void RouteTest::thePersonsOwnMoveEndsTheRoute() {
    SoundSystem sound;
    SoundMeter atSecond(second);
    const auto player = pulsePlayer();
    const auto route = sound.route(*player);
    QTest::qWait(1500);
    QVERIFY(moveUntil(second,
                      [&] { return QTest::qWaitFor([&] { return !route->isRunning(); }, 1500); }));
    route->stop();
    QVERIFY(atSecond.comesTo(toneLevel));
    QVERIFY(moveUntil(first, [&] { return atSecond.comesTo(0, 1500); }));
}

void RouteTest::aProgramThatForbidsItIsNotRouted() {
    SoundSystem sound;
    const auto player = nativePlayer({QStringLiteral("Fixed"), QStringLiteral("2"),
                                      QStringLiteral("float"), QStringLiteral("fixed")});
    const AudioObject process = sound.waitForProcess(player->pid());
    // What is told of a pause says nothing about whether it may be moved.
    player->tell("p");
    QTRY_COMPARE(sound.process(player->pid())->isRunningOutput, false);
    player->tell("r");
    QCOMPARE(sound.waitForProcess(player->pid()), process);
    QVERIFY_THROWS_EXCEPTION(MixerError, TapPlayback(sound.system, process));
}

QTEST_GUILESS_MAIN(RouteTest)
#include "RouteTest.moc"
