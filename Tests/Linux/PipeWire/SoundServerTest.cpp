#include "SoundMeter.h"
#include "SoundSystem.h"

#include <QThread>

#include <csignal>

using namespace perchly;

namespace {

/// Not with pactl, as in RouteTest.cpp.
void setDefault(const QString &sink) {
    output(QStringLiteral("pw-metadata 0 default.configured.audio.sink "
                          R"({"""name""":"""%1"""} Spa:String:JSON)")
               .arg(sink));
}

void soundSystem(const char *command) {
    output(QStringLiteral("%1 %2").arg(qEnvironmentVariable("PERCHLY_TEST_SOUND"),
                                       QLatin1String(command)));
}

int serverPid() {
    QFile file(QFileInfo(qEnvironmentVariable("XDG_RUNTIME_DIR")).path() +
               QStringLiteral("/sound/pipewire.pid"));
    return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed().toInt() : 0;
}

QStringList openFiles() {
    QStringList files;
    const QDir folder(QStringLiteral("/proc/self/fd"));
    for (const QFileInfo &file : folder.entryInfoList(QDir::Files | QDir::System)) {
        files.append(file.symLinkTarget());
    }
    return files;
}

} // namespace

class SoundServerTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void cleanup() { setDefault(first); }

    void defaultOutputIsFollowedWhileRouting() {
        SoundSystem sound;
        SoundMeter atFirst(first);
        SoundMeter atSecond(second);
        const auto one = nativePlayer();
        const auto other = pulsePlayer();
        const auto firstRoute = sound.route(one, 0);
        const auto secondRoute = sound.route(other, 0.5F);
        const AudioObject before = sound.system.defaultOutput();
        QVERIFY(before != 0);
        setDefault(second);
        QTRY_VERIFY(sound.system.defaultOutput() != before && sound.system.defaultOutput() != 0);
        QVERIFY(atSecond.comesTo(toneLevel / 2));
        secondRoute->stop();
        const qint64 pid = other->processId();
        QVERIFY(sound.process(pid));
        other->kill();
        QTRY_VERIFY(!sound.process(pid));
        setDefault(first);
        QTRY_COMPARE(sound.system.defaultOutput(), before);

        // The user makes the route itself the default output.
        int changes = 0;
        connect(&sound.system, &AudioSystem::changed, this, [&] {
            if (sound.system.defaultOutput() != before) {
                ++changes;
                firstRoute->stop();
            }
        });
        QString sinks;
        QTRY_COMPARE((sinks = output(QStringLiteral("pactl list short sinks")))
                         .count(QStringLiteral("perchly.")),
                     1);
        setDefault(QStringLiteral("perchly.") +
                   sinks.section(QStringLiteral("perchly."), 1).section(u'\t', 0, 0));
        QTRY_COMPARE(changes, 1);
        QVERIFY(atFirst.comesTo(toneLevel, 500)); // the previous default is restored at once
        QTRY_COMPARE(sound.system.defaultOutput(), before);
    }

    void serverRestartEndsRoutesAndRestoresTheList() {
        SoundSystem sound;
        auto player = nativePlayer();
        const AudioObject output = sound.system.defaultOutput();
        auto route = sound.route(player);
        QTest::qWait(300);
        soundSystem("stop");
        QTRY_VERIFY(!route->isRunning());
        QVERIFY(!sound.system.processes());
        QCOMPARE(sound.system.defaultOutput(), output);
        route.reset();
        soundSystem("start");
        soundSystem("wait");
        QTRY_VERIFY(sound.system.processes());
        QTRY_COMPARE(sound.system.defaultOutput(), output);
        player = nativePlayer();
        SoundMeter meter(first);
        route = sound.route(player, 0.5F);
        QVERIFY(meter.comesTo(toneLevel / 2));
        route.reset();
        QTRY_COMPARE(tracesOfRoutes(), QString());
    }

    void equalPidsInSandboxesAreDistinguished() {
        const SoundSystem sound([](std::optional<std::int32_t> pid, const QStringList &hints) {
            const bool mayBlock =
                QThread::currentThread() != QCoreApplication::instance()->thread();
            const QString name = hints.value(0) + QString::number(pid.value_or(0));
            return mayBlock ? std::optional(RunningApplication{name, {}}) : std::nullopt;
        });
        // PID 2 also exists outside the sandboxes.
        const QString properties =
            QStringLiteral("application.process.id=2 pipewire.access.portal.app_id=");
        const auto one = pulsePlayer(properties + QStringLiteral("org.example.One"));
        const auto other = pulsePlayer(properties + QStringLiteral("org.example.Other"));
        const auto plain = pulsePlayer(QStringLiteral("application.id=plain"));
        const auto list = [&] {
            QMap<QString, bool> isSandboxed; // by name
            const auto processes = sound.system.processes().value();
            for (const AudioProcess &process : processes) {
                if (process.isRunningOutput == true) {
                    isSandboxed.insert(sound.system.application(process.object)->name,
                                       process.isSandboxed);
                }
            }
            return isSandboxed;
        };
        QTRY_COMPARE(list(), (QMap<QString, bool>{
                                 {QStringLiteral("org.example.One0"), true},
                                 {QStringLiteral("org.example.Other0"), true},
                                 {QStringLiteral("plain%1").arg(plain->processId()), false}}));
    }

    void streamMayEndWhileItsRouteStarts() {
        SoundSystem sound;
        for (int delay = 0; delay < 60; delay += 6) {
            const auto player = nativePlayer();
            const AudioObject process = sound.waitForProcess(player->processId());
            player->kill();
            QTest::qWait(delay);
            QString error;
            const auto route = MixerRoute::make(sound.system, process, error);
            QTest::qWait(delay);
            QVERIFY(route || error.startsWith(QStringLiteral("Audio access failed.")));
        }
        QTRY_COMPARE(tracesOfRoutes(), QString());
    }

    void fiftyRoutesLeaveNothingBehind() {
        SoundSystem sound;
        const auto player = pulsePlayer();
        const AudioObject process = sound.waitForProcess(player->processId());
        std::optional<qsizetype> files;
        for (int round = 0; round < 50; ++round) {
            QString error;
            auto route = MixerRoute::make(sound.system, process, error);
            QVERIFY2(route, qPrintable(error));
            // Most routes are released before the process has moved, the last ones afterwards.
            const bool isWhole = round >= 39;
            QTest::qWait(isWhole ? 200 : round % 4 * 15);
            route.reset();
            QTest::qWait(isWhole ? 600 : 0);
            if (round == 0) {
                QTRY_COMPARE(tracesOfRoutes(), QString());
                files = openFiles().size();
            }
        }
        QTRY_COMPARE(tracesOfRoutes(), QString());
        // PipeWire keeps memory for both outputs that have driven the graph.
        QTRY_VERIFY2(openFiles().size() <= *files + 2, qPrintable(openFiles().join(u'\n')));
    }

    void frozenServerDoesNotBlock() {
        SoundSystem sound;
        SoundMeter meter(first);
        const auto player = nativePlayer();
        QVERIFY(sound.waitForProcess(player->processId()) != 0);
        ::kill(serverPid(), SIGSTOP);
        QElapsedTimer time;
        time.start();
        auto route = sound.route(player, 0.5F);
        QVERIFY2(time.elapsed() < 500, qPrintable(QString::number(time.elapsed())));
        QTest::qWait(800);
        ::kill(serverPid(), SIGCONT);
        QVERIFY(meter.comesTo(toneLevel / 2));
        ::kill(serverPid(), SIGSTOP);
        time.start();
        route.reset();
        QVERIFY(time.elapsed() < 500);
        ::kill(serverPid(), SIGCONT);
        QVERIFY(meter.comesTo(toneLevel));
        QTRY_COMPARE(tracesOfRoutes(), QString());
    }
};

QTEST_GUILESS_MAIN(SoundServerTest)
#include "SoundServerTest.moc"
