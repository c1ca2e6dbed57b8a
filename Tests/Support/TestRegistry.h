#pragma once

#include <QObject>

#include <memory>
#include <vector>

namespace perchly {

using TestFactory = std::unique_ptr<QObject> (*)();

/// The test classes of an executable, which `main` runs in turn.
inline std::vector<TestFactory> &testFactories() {
    static std::vector<TestFactory> factories;
    return factories;
}

/// `const RegisteredTest<MyTest> registered;` in MyTest's file adds it to the executable.
template <class Test>
struct RegisteredTest {
    RegisteredTest() {
        testFactories().push_back(
            []() -> std::unique_ptr<QObject> { return std::make_unique<Test>(); });
    }
};

} // namespace perchly
