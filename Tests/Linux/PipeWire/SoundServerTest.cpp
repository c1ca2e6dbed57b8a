#include "MixerError.h"
#include "SoundMeter.h"
#include "SoundSystem.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTest>
#include <QThread>

#include <csignal>

using namespace perchly;

namespace {

const QString first = QStringLiteral("first");
const QString second = QStringLiteral("second");

void setDefault(const QString &output) {
    told(QStringLiteral("pactl"), {QStringLiteral("set-default-sink"), output});
}

void soundSystem(const char *command) {
    told(qEnvironmentVariable("PERCHLY_TEST_SOUND"), {QString::fromLatin1(command)});
}

/// The process of the server itself.
int serverPid() {
    QFile file(QFileInfo(qEnvironmentVariable("XDG_RUNTIME_DIR")).path() +
               QStringLiteral("/sound/pipewire.pid"));
    return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed().toInt() : 0;
}

qsizetype entriesOf(const char *folder) {
    return QDir(QString::fromLatin1(folder)).entryList(QDir::AllEntries | QDir::System).size();
}

} // namespace

class SoundServerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void aNewDefaultOutputIsSeenUnderTwoRoutes();
    void aRemovedOutputIsSeenUnderTwoRoutes();
    void theRoutesOwnSinkCountsAsAnotherOutput();
    void aRestartOfTheServerLosesTheRoutesAndBringsTheListBack();
    void aProcessThatExitsLeavesTheList();
    void pidsArePerSandboxAndLookedUpOffTheMainThread();
    void aStreamMayGoWhileItsRouteIsMade();
    void fiftyRoundsLeaveNothingBehind();
    void aFrozenServerHoldsNobodyUp();
    void withoutAServerThereIsNothing();
    void aHundredStreamsAreListed();
};

void SoundServerTest::cleanup() {
    setDefault(first);
}

void SoundServerTest::aNewDefaultOutputIsSeenUnderTwoRoutes() {
    SoundSystem sound;
    SoundMeter atSecond(second);
    const auto one = nativePlayer();
    const auto other = pulsePlayer();
    const auto firstRoute = sound.route(*one);
    const auto secondRoute = sound.route(*other);
    perchly_ring_gain(firstRoute->ring(), 0);
    perchly_ring_gain(secondRoute->ring(), 0.5F);
    const AudioObject before = sound.system.defaultOutput();
    QVERIFY(before != 0);
    setDefault(second);
    QTRY_VERIFY(sound.system.defaultOutput() != before);
    QVERIFY(sound.system.defaultOutput() != 0);
    QVERIFY(atSecond.comesTo(toneLevel / 2));
    firstRoute->stop();
    secondRoute->stop();
    other->kill();
    QVERIFY(atSecond.comesTo(toneLevel));
    setDefault(first);
    QTRY_COMPARE(sound.system.defaultOutput(), before);
}

void SoundServerTest::aRemovedOutputIsSeenUnderTwoRoutes() {
    SoundSystem sound;
    const QString module = told(QStringLiteral("pactl"),
                                {QStringLiteral("load-module"), QStringLiteral("module-null-sink"),
                                 QStringLiteral("sink_name=third")})
                               .trimmed();
    setDefault(QStringLiteral("third"));
    SoundMeter meter(first);
    const auto one = nativePlayer();
    const auto other = pulsePlayer();
    const auto firstRoute = sound.route(*one);
    const auto secondRoute = sound.route(*other);
    perchly_ring_gain(firstRoute->ring(), 0);
    perchly_ring_gain(secondRoute->ring(), 0.5F);
    QTest::qWait(500);
    QVERIFY(meter.comesTo(0));
    const AudioObject before = sound.system.defaultOutput();
    told(QStringLiteral("pactl"), {QStringLiteral("unload-module"), module});
    QTRY_VERIFY(sound.system.defaultOutput() != before && sound.system.defaultOutput() != 0);
    firstRoute->stop();
    secondRoute->stop();
    other->kill();
    QVERIFY(meter.comesTo(toneLevel));
}

void SoundServerTest::theRoutesOwnSinkCountsAsAnotherOutput() {
    SoundSystem sound;
    SoundMeter meter(first);
    const auto player = nativePlayer();
    const auto route = sound.route(*player);
    perchly_ring_gain(route->ring(), 0);
    QVERIFY(meter.comesTo(0));
    const AudioObject before = sound.system.defaultOutput();
    int changes = 0;
    connect(&sound.system, &AudioSystem::changed, this, [&] {
        if (sound.system.defaultOutput() != before) {
            ++changes;
            route->stop();
        }
    });
    const QString name =
        told(QStringLiteral("pactl"),
             {QStringLiteral("list"), QStringLiteral("short"), QStringLiteral("sinks")})
            .section(QStringLiteral("perchly."), 1)
            .section(u'\t', 0, 0);
    QVERIFY(!name.isEmpty());
    setDefault(QStringLiteral("perchly.") + name);
    QTRY_COMPARE(changes, 1);
    // The player goes by the default, which is chosen again at once.
    QVERIFY(meter.comesTo(toneLevel, 500));
    QTRY_COMPARE(sound.system.defaultOutput(), before);
    const QString chosen =
        told(QStringLiteral("pw-metadata"),
             {QStringLiteral("-n"), QStringLiteral("default"), QStringLiteral("0"),
              QStringLiteral("default.configured.audio.sink")});
    QVERIFY2(!chosen.contains(QStringLiteral("perchly.")), qPrintable(chosen));
}

void SoundServerTest::aRestartOfTheServerLosesTheRoutesAndBringsTheListBack() {
    SoundSystem sound;
    std::optional<qsizetype> descriptors;
    for (int round = 0; round < 2; ++round) {
        auto player = nativePlayer();
        const AudioObject output = sound.system.defaultOutput();
        const auto route = sound.route(*player);
        QTest::qWait(300);
        soundSystem("stop");
        QTRY_VERIFY(!route->isRunning());
        QVERIFY(!sound.system.processes());
        QVERIFY(sound.system.canRouteProcesses());
        QCOMPARE(sound.system.defaultOutput(), output);
        QVERIFY_THROWS_EXCEPTION(MixerError, TapPlayback(sound.system, 1));
        route->stop();
        soundSystem("start");
        soundSystem("wait");
        QTRY_VERIFY(sound.system.processes());
        QTRY_COMPARE(sound.system.defaultOutput(), output);
        player = nativePlayer();
        SoundMeter meter(first);
        const auto again = sound.route(*player);
        perchly_ring_gain(again->ring(), 0.5F);
        QVERIFY(meter.comesTo(toneLevel / 2));
        again->stop();
        QTRY_COMPARE(tracesOfRoutes(), QString());
        if (!descriptors) {
            descriptors = entriesOf("/proc/self/fd");
        }
    }
    QTRY_VERIFY(entriesOf("/proc/self/fd") <= *descriptors);
}

void SoundServerTest::aProcessThatExitsLeavesTheList() {
    SoundSystem sound;
    const auto player = pulsePlayer();
    const auto route = sound.route(*player);
    QTest::qWait(500);
    const std::int32_t pid = player->pid();
    player->kill();
    QTRY_VERIFY(!sound.process(pid));
    QVERIFY(route->isRunning());
    route->stop();
    QTRY_COMPARE(tracesOfRoutes(), QString());
}

void SoundServerTest::pidsArePerSandboxAndLookedUpOffTheMainThread() {
    const SoundSystem sound([](std::optional<std::int32_t> pid, const QStringList &hints) {
        const bool mayBlock = QThread::currentThread() != QCoreApplication::instance()->thread();
        const QString name = hints.value(0) + QString::number(pid.value_or(0));
        return mayBlock ? std::optional(RunningApplication{name, {}}) : std::nullopt;
    });
    // The system has a process of that number too.
    const QString properties =
        QStringLiteral("application.process.id=2 pipewire.access.portal.app_id=");
    const auto one = pulsePlayer(properties + QStringLiteral("org.example.One"));
    const auto other = pulsePlayer(properties + QStringLiteral("org.example.Other"));
    const auto plain = pulsePlayer(QStringLiteral("application.id=plain"));
    QVERIFY(sound.waitForProcess(plain->pid()) != 0);
    const QString plainName = QStringLiteral("plain%1").arg(plain->pid());
    QSet<QString> names;
    const auto areNamed = [&] {
        names.clear();
        const auto processes = sound.system.processes().value();
        for (const AudioProcess &process : processes) {
            if (process.isRunningOutput == true) {
                const QString name = sound.system.application(process.object)->name;
                names.insert(name);
                if (process.isSandboxed != (name != plainName)) {
                    return false;
                }
            }
        }
        return names == QSet<QString>{QStringLiteral("org.example.One0"),
                                      QStringLiteral("org.example.Other0"), plainName};
    };
    QTRY_VERIFY2(areNamed(), qPrintable(names.values().join(u' ')));
}

void SoundServerTest::aStreamMayGoWhileItsRouteIsMade() {
    SoundSystem sound;
    for (int delay = 0; delay < 60; delay += 6) {
        const auto player = nativePlayer();
        const AudioObject process = sound.waitForProcess(player->pid());
        ::kill(player->pid(), SIGKILL);
        QTest::qWait(delay);
        try {
            TapPlayback route(sound.system, process);
            QTest::qWait(delay);
            route.stop();
        } catch (const MixerError &error) {
            QVERIFY(error.description().startsWith(QStringLiteral("Audio access failed.")));
        }
    }
    QTRY_COMPARE(tracesOfRoutes(), QString());
}

void SoundServerTest::fiftyRoundsLeaveNothingBehind() {
    SoundSystem sound;
    const auto player = pulsePlayer();
    const AudioObject process = sound.waitForProcess(player->pid());
    std::optional<qsizetype> descriptors;
    std::optional<qsizetype> threads;
    for (int round = 0; round < 50; ++round) {
        TapPlayback route(sound.system, process);
        // Most are released before the process has been sent there, the last when it is there.
        const bool isWhole = round >= 39;
        QTest::qWait(isWhole ? 200 : round % 4 * 15);
        route.stop();
        QTest::qWait(isWhole ? 600 : 0);
        if (round == 0) {
            QTRY_COMPARE(tracesOfRoutes(), QString());
            descriptors = entriesOf("/proc/self/fd");
            threads = entriesOf("/proc/self/task");
        }
    }
    QTRY_COMPARE(tracesOfRoutes(), QString());
    // The library keeps the memory of each device that has ever set the pace: there are two.
    QTRY_VERIFY(entriesOf("/proc/self/fd") <= *descriptors + 2);
    QCOMPARE(entriesOf("/proc/self/task"), *threads);
    SoundMeter meter(first);
    QVERIFY(meter.comesTo(toneLevel));
}

void SoundServerTest::aFrozenServerHoldsNobodyUp() {
    SoundSystem sound;
    SoundMeter meter(first);
    const auto player = nativePlayer();
    const AudioObject process = sound.waitForProcess(player->pid());
    ::kill(serverPid(), SIGSTOP);
    QElapsedTimer time;
    time.start();
    TapPlayback route(sound.system, process);
    QVERIFY2(time.elapsed() < 500, qPrintable(QString::number(time.elapsed())));
    perchly_ring_gain(route.ring(), 0.5F);
    QTest::qWait(800);
    ::kill(serverPid(), SIGCONT);
    QVERIFY(meter.comesTo(toneLevel / 2));
    ::kill(serverPid(), SIGSTOP);
    time.start();
    route.stop();
    QVERIFY(time.elapsed() < 500);
    ::kill(serverPid(), SIGCONT);
    QVERIFY(meter.comesTo(toneLevel));
    QTRY_COMPARE(tracesOfRoutes(), QString());
}

void SoundServerTest::withoutAServerThereIsNothing() {
    const QByteArray folder = qgetenv("XDG_RUNTIME_DIR");
    qputenv("XDG_RUNTIME_DIR", QByteArray("/nowhere/at/all"));
    const auto reset = qScopeGuard([&] { qputenv("XDG_RUNTIME_DIR", folder); });
    PipeWireAudioSystem system;
    system.start();
    QTest::qWait(600);
    QVERIFY(!system.canRouteProcesses());
    QVERIFY(!system.processes());
    QCOMPARE(system.defaultOutput(), AudioObject(0));
    QVERIFY(!system.application(1));
    QVERIFY_THROWS_EXCEPTION(MixerError, TapPlayback(system, 1));
}

void SoundServerTest::aHundredStreamsAreListed() {
    SoundSystem sound;
    std::vector<std::unique_ptr<Program>> players;
    const qsizetype before = sound.system.processes()->size();
    for (int count = 0; count < 4; ++count) {
        players.push_back(nativePlayer());
        QVERIFY(sound.waitForProcess(players.back()->pid()) != 0);
        players.back()->tell(QByteArray(25, 'o').constData());
    }
    QTRY_COMPARE(sound.system.processes()->size(), before + 4);
    QTRY_VERIFY_WITH_TIMEOUT(
        told(QStringLiteral("pw-cli"), {QStringLiteral("list-objects"), QStringLiteral("Node")})
                .count(QStringLiteral("Stream/Output/Audio")) > 100,
        10000);
    const auto route = sound.route(*players.front());
    QTest::qWait(500);
    QVERIFY(route->isRunning());
    route->stop();
    players.clear();
    QTRY_COMPARE_WITH_TIMEOUT(sound.system.processes()->size(), before, 15000);
}

QTEST_GUILESS_MAIN(SoundServerTest)
#include "SoundServerTest.moc"
