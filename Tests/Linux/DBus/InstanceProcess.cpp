#include "DBusSingleInstance.h"
#include "SessionBus.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <cstdio>

/// Claims to be the only instance, prints whether it is and how many microseconds that took, and
/// then each request until it is killed. One that is refused ends at once.
int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    QElapsedTimer elapsed;
    elapsed.start();
    perchly::DBusSingleInstance instance(
        perchly::sessionbus::within(std::chrono::milliseconds(1000)));
    const qint64 connected = elapsed.nsecsElapsed() / 1000;
    QObject::connect(&instance, &perchly::SingleInstance::requested, [](const QString &action) {
        std::printf("%s\n", qPrintable(action));
        std::fflush(stdout);
    });
    const bool only = instance.claim();
    const qint64 claimed = elapsed.nsecsElapsed() / 1000 - connected;
    std::printf("%s %lld %lld\n", only ? "claimed" : "refused", static_cast<long long>(claimed),
                static_cast<long long>(connected));
    std::fflush(stdout);
    return only ? QCoreApplication::exec() : 0;
}
