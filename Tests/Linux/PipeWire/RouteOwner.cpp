// A program that mutes a process until its standard input ends.
//   RouteOwner PID
#include "SoundSystem.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <cstdio>
#include <unistd.h>

using namespace perchly;

int main(int argc, char **argv) {
    QCoreApplication application(argc, argv);
    SoundSystem sound;
    TapPlayback route(sound.system, sound.waitForProcess(QByteArray(argv[1]).toInt()));
    perchly_ring_gain(route.ring(), 0);
    std::puts("routed");
    std::fflush(stdout);
    const QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &application, &QCoreApplication::quit);
    const int status = QCoreApplication::exec();
    route.stop();
    return status;
}
