#include "SpringValue.h"
#include "TestRegistry.h"

#include <QAnimationDriver>
#include <QTest>

#include <algorithm>

namespace perchly {

namespace {

/// Animation time that only the test moves.
class ManualDriver : public QAnimationDriver {
public:
    void run(int milliseconds) {
        for (int passed = 0; passed < milliseconds; passed += 4) {
            m_elapsed += 4;
            advanceAnimation();
        }
    }
    qint64 elapsed() const override { return m_elapsed; }

private:
    qint64 m_elapsed = 0;
};

} // namespace

class SpringValueTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { m_driver.install(); }
    void cleanup() { m_driver.uninstall(); }

    void keepsItsSpeedWhenTheTargetChanges() {
        SpringValue spring;
        double highest = 0;
        connect(&spring, &SpringValue::valueChanged,
                [&] { highest = std::max(highest, spring.value()); });
        spring.setTarget(100);
        startTime();
        m_driver.run(100);
        // The exact solution after 0.1 s.
        QVERIFY(std::abs(spring.value() - 47.3) < 0.2);
        m_driver.run(400);
        QVERIFY(std::abs(spring.value() - 100) < 0.5);
        QVERIFY(highest < 100.6);
        m_driver.run(300);
        QCOMPARE(spring.value(), 100.0);
        QVERIFY(!spring.isRunning());

        // A new target does not stop the motion abruptly.
        spring.setTarget(0);
        startTime();
        m_driver.run(100);
        const double before = spring.value();
        spring.setTarget(100);
        m_driver.run(8);
        QVERIFY(spring.value() < before);
    }

private:
    /// Qt starts an animation in a later turn of the event loop.
    static void startTime() {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }

    ManualDriver m_driver;
};

static const RegisteredTest<SpringValueTest> registeredSpringValueTest;

} // namespace perchly

#include "SpringValueTest.moc"
