#include "DraggingTest.h"
#include "HoverTest.h"
#include "KeysTest.h"
#include "LaunchTest.h"

#include <QGuiApplication>
#include <QTest>

template <class... Tests>
int runAll(int argc, char **argv) {
    int failures = 0;
    ((failures += QTest::qExec(std::make_unique<Tests>().get(), argc, argv)), ...);
    return failures;
}

int main(int argc, char **argv) {
    QGuiApplication application(argc, argv);
    return runAll<LaunchTest, HoverTest, KeysTest, DraggingTest>(argc, argv);
}
