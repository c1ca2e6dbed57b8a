#include "TestRegistry.h"

#include <QCoreApplication>
#include <QTest>

namespace perchly {

std::vector<TestFactory> &testFactories() {
    static std::vector<TestFactory> factories;
    return factories;
}

namespace {

QString plainClassName(const QObject &test) {
    return QString::fromLatin1(test.metaObject()->className()).section(QLatin1StringView("::"), -1);
}

int runTests(QStringList arguments) {
    const QString chosen = arguments.value(1);
    int failures = 0;
    int run = 0;
    bool all = true;
    for (const TestFactory make : testFactories()) {
        all = all && plainClassName(*make()) != chosen;
    }
    if (!all) {
        arguments.removeAt(1);
    }
    for (const TestFactory make : testFactories()) {
        const auto test = make();
        if (all || plainClassName(*test) == chosen) {
            failures += QTest::qExec(test.get(), arguments);
            ++run;
        }
    }
    return run == 0 ? 1 : std::min(failures, 127);
}

} // namespace

} // namespace perchly

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    return perchly::runTests(QCoreApplication::arguments());
}
