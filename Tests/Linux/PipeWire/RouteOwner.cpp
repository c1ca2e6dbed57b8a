// RouteOwner PID: mutes a process until stdin ends.
#include "SoundSystem.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <cstdio>
#include <unistd.h>

using namespace perchly;

int main(int argc, char **argv) {
    QCoreApplication application(argc, argv);
    SoundSystem sound;
    QString error;
    const auto process = sound.waitForProcess(QByteArray(argv[1]).toInt());
    const auto route = MixerRoute::make(sound.system, process, error);
    route->setGain(0);
    std::puts("routed");
    std::fflush(stdout);
    const QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &application, &QCoreApplication::quit);
    return QCoreApplication::exec();
}
