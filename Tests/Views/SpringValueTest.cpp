#include "SpringValue.h"
#include "TestRegistry.h"

#include <QAnimationDriver>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>

namespace perchly {

namespace {

/// Animation time that moves only when a test moves it.
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

    void theSpringArrivesSoonAndHardlyOvershoots() {
        SpringValue spring;
        double highest = 0;
        connect(&spring, &SpringValue::valueChanged,
                [&] { highest = std::max(highest, spring.value()); });
        spring.setTarget(100);
        startTime();
        m_driver.run(100);
        // Where such a spring is after a tenth of a second.
        QVERIFY2(std::abs(spring.value() - 47.3) < 0.2,
                 qPrintable(QString::number(spring.value())));
        m_driver.run(400);
        QVERIFY(std::abs(spring.value() - 100) < 0.5);
        QVERIFY(highest < 100.6);
        m_driver.run(300);
        QCOMPARE(spring.value(), 100.0);
        QVERIFY(!spring.isRunning());
        highest = 0;
        m_driver.run(1000);
        QVERIFY2(highest == 0, "at rest nothing is announced");
    }

    void anotherTargetOnTheWayKeepsPlaceAndSpeed() {
        SpringValue spring;
        spring.setTarget(100);
        startTime();
        m_driver.run(100);
        const double before = spring.value();
        spring.setTarget(0);
        QCOMPARE(spring.value(), before);
        m_driver.run(8);
        QVERIFY2(spring.value() > before, "the value turned round at once");
        m_driver.run(800);
        QCOMPARE(spring.value(), 0.0);
    }

    void reducedMotionEasesAndNoMotionJumps() {
        SpringValue spring;
        spring.setReduced(true);
        spring.setTarget(1);
        startTime();
        m_driver.run(60);
        QVERIFY(spring.value() > 0.6 && spring.value() < 1);
        m_driver.run(64);
        QCOMPARE(spring.value(), 1.0);
        spring.setAnimated(false);
        spring.setTarget(0);
        QCOMPARE(spring.value(), 0.0);
    }

private:
    /// An animation takes its place among the running ones in a later turn of the event loop.
    static void startTime() {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }

    ManualDriver m_driver;
};

namespace {

const RegisteredTest<SpringValueTest> registeredSpringValueTest;

} // namespace

} // namespace perchly

#include "SpringValueTest.moc"
