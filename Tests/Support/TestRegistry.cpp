#include "TestRegistry.h"

#include <QGuiApplication>
#include <QTest>

#include <algorithm>

int main(int argc, char **argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QGuiApplication application(argc, argv);
    int failures = 0;
    for (const perchly::TestFactory make : perchly::testFactories()) {
        failures += QTest::qExec(make().get(), argc, argv);
    }
    return std::min(failures, 127);
}
