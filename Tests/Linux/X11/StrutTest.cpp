#include "Strut.h"

#include <QTest>

using namespace perchly;

namespace {

using Values = QList<quint32>;
using Struts = QList<Strut>;

constexpr QSize xScreen(3200, 1080);
constexpr QRect leftDisplay(0, 0, 1920, 1080);
constexpr QRect rightDisplay(1920, 180, 1280, 800);

Strut partial(const Values &values) {
    return Strut::fromProperties(values, {});
}

// Along the whole width, as old programs say it.
Strut whole(const Values &values) {
    return Strut::fromProperties({}, values);
}

} // namespace

class StrutTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void leavesOfADisplay_data() {
        QTest::addColumn<QRect>("display");
        QTest::addColumn<Struts>("struts");
        QTest::addColumn<QRect>("expected");
        const auto row = [](const char *name, const QRect &display, const Struts &struts,
                            const QRect &expected) {
            QTest::newRow(name) << display << struts << expected;
        };
        const Strut topOfLeft = partial({0, 0, 30, 0, 0, 0, 0, 0, 0, 1919, 0, 0});
        const Strut topOfRight = partial({0, 0, 220, 0, 0, 0, 0, 0, 1920, 3199, 0, 0});
        const Strut bottomOfRight = partial({0, 0, 0, 150, 0, 0, 0, 0, 0, 0, 1920, 3199});
        const Strut leftOfRight = partial({1980, 0, 0, 0, 180, 979, 0, 0, 0, 0, 0, 0});
        row("a panel at the top", leftDisplay, {topOfLeft}, {0, 30, 1920, 1050});
        row("the other display's panel does not count", rightDisplay, {topOfLeft}, rightDisplay);
        row("a display below the screen's edge counts from its own edge", rightDisplay,
            {topOfRight, bottomOfRight}, {1920, 220, 1280, 710});
        row("a panel between the displays reserves on the one it stands on", rightDisplay,
            {leftOfRight}, {1980, 180, 1220, 800});
        row("and does not eat the display before it", leftDisplay, {leftOfRight}, leftDisplay);
        row("the deeper of two panels wins", leftDisplay, {topOfLeft, whole({0, 0, 50, 0})},
            {0, 50, 1920, 1030});
        row("an old strut reaches along the whole edge", leftDisplay, {whole({40, 0, 0, 60})},
            {40, 0, 1880, 1020});
        row("struts that leave nothing are not believed", leftDisplay, {whole({0, 0, 700, 700})},
            leftDisplay);
    }

    void leavesOfADisplay() {
        QFETCH(QRect, display);
        QFETCH(Struts, struts);
        QTEST(visibleArea(display, xScreen, struts), "expected");
    }

    void nonsenseReservesNothing() {
        QVERIFY(partial({0, 0, 30}).isEmpty());
        QVERIFY(Strut::fromProperties({}, {}).isEmpty());
        QVERIFY(whole({0xffffffff, 0, 0, 70000}).isEmpty());
        // A program that changed its mind sets the newer property to nothing and forgets the older.
        QVERIFY(Strut::fromProperties(Values(12, 0), {0, 0, 30, 0}).isEmpty());
    }
};

QTEST_GUILESS_MAIN(StrutTest)
#include "StrutTest.moc"
