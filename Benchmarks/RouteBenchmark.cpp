// The mixer's CPU time for PipeWire's events.
//   RouteBenchmark route PID      routes the process until stdin ends
//   RouteBenchmark rounds PID N   routes and releases it N times, a second each; prints how long
//                                 the first and the slowest later routing blocked the thread
//   RouteBenchmark idle           only follows the sound system
//   RouteBenchmark list ROUNDS    prints the microseconds of CPU to list the programs that play
#include "MixerRoute.h"
#include "PipeWireAudioSystem.h"
#include "RunningApplications.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QSocketNotifier>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <memory>
#include <unistd.h>

using namespace perchly;

namespace {

void wait(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

double processorTime() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e6 + double(time.tv_nsec) / 1e3;
}

void list(const PipeWireAudioSystem &system, int rounds) {
    const double start = processorTime();
    qsizetype playing = 0;
    for (int round = 0; round < rounds; ++round) {
        playing = 0;
        const auto processes = system.processes();
        for (const AudioProcess &process : processes.value_or(QList<AudioProcess>())) {
            if (process.isRunningOutput == true && process.pid) {
                const auto application = system.application(process.object);
                playing += application ? 1 : 0;
            }
        }
    }
    std::printf("%.1f microseconds for %lld that play\n", (processorTime() - start) / rounds,
                static_cast<long long>(playing));
}

AudioObject processOf(const PipeWireAudioSystem &system, std::int32_t pid) {
    const auto processes = system.processes();
    for (const AudioProcess &process : processes.value_or(QList<AudioProcess>())) {
        if (process.pid == pid) {
            return process.object;
        }
    }
    return 0;
}

std::unique_ptr<MixerRoute> routed(PipeWireAudioSystem &system, AudioObject process) {
    QString error;
    auto route = MixerRoute::make(system, process, error);
    if (!route) {
        qFatal("%s", qPrintable(error));
    }
    return route;
}

/// Each round routes the process for a second and releases it for a second.
void rounds(PipeWireAudioSystem &system, AudioObject process, int count) {
    double first = 0;
    double slowest = 0;
    for (int round = 0; round < count; ++round) {
        QElapsedTimer time;
        time.start();
        auto route = routed(system, process);
        const double milliseconds = double(time.nsecsElapsed()) / 1e6;
        (round == 0 ? first : slowest) =
            round == 0 ? milliseconds : std::max(slowest, milliseconds);
        wait(1000);
        route.reset();
        wait(1000);
    }
    std::printf("enabling: %.1f ms at first, %.1f ms at most later\n", first, slowest);
}

} // namespace

int main(int argc, char **argv) {
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    PipeWireAudioSystem system(findRunningApplication, QStringLiteral(ROUTE_KEEPER));
    system.start();
    wait(1500);
    const QString mode = arguments.value(1);
    if (mode == QStringLiteral("list")) {
        list(system, arguments.value(2).toInt());
        return 0;
    }
    if (mode == QStringLiteral("rounds")) {
        rounds(system, processOf(system, arguments.value(2).toInt()), arguments.value(3).toInt());
        return 0;
    }
    std::unique_ptr<MixerRoute> route;
    if (mode == QStringLiteral("route")) {
        route = routed(system, processOf(system, arguments.value(2).toInt()));
        wait(2000);
    }
    std::puts("ready");
    std::fflush(stdout);
    const QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &application, &QCoreApplication::quit);
    return QCoreApplication::exec();
}
