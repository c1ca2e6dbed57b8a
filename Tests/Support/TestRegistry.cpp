#include "TestRegistry.h"

#include <QGuiApplication>
#include <QTest>

#include <algorithm>
#include <functional>

namespace perchly {

std::vector<TestFactory> &testFactories() {
    static std::vector<TestFactory> factories;
    return factories;
}

namespace {

int runTests(QStringList arguments) {
    std::vector<TestFactory> tests = testFactories();
    const auto isChosen = [chosen = arguments.value(1)](TestFactory make) {
        const QString name = QString::fromLatin1(make()->metaObject()->className());
        return name.section(QLatin1StringView("::"), -1) == chosen;
    };
    if (std::ranges::any_of(tests, isChosen)) {
        std::erase_if(tests, std::not_fn(isChosen));
        arguments.removeAt(1);
    }
    int failures = 0;
    for (const TestFactory make : tests) {
        failures += QTest::qExec(make().get(), arguments);
    }
    return std::min(failures, 127);
}

} // namespace

} // namespace perchly

int main(int argc, char **argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QGuiApplication application(argc, argv);
    return perchly::runTests(QCoreApplication::arguments());
}
