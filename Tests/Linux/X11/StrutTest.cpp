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

// _NET_WM_STRUT, along the whole edge.
Strut whole(const Values &values) {
    return Strut::fromProperties({}, values);
}

} // namespace

class StrutTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void leavesOfADisplay() {
        const auto left = [](const Struts &struts) {
            return visibleArea(leftDisplay, xScreen, struts);
        };
        const auto right = [](const Struts &struts) {
            return visibleArea(rightDisplay, xScreen, struts);
        };
        const Strut topOfLeft = partial({0, 0, 30, 0, 0, 0, 0, 0, 0, 1919, 0, 0});
        const Strut topOfRight = partial({0, 0, 220, 0, 0, 0, 0, 0, 1920, 3199, 0, 0});
        const Strut bottomOfRight = partial({0, 0, 0, 150, 0, 0, 0, 0, 0, 0, 1920, 3199});
        const Strut leftOfRight = partial({1980, 0, 0, 0, 180, 979, 0, 0, 0, 0, 0, 0});
        QCOMPARE(left({topOfLeft}), QRect(0, 30, 1920, 1050));
        QCOMPARE(right({topOfLeft}), rightDisplay);
        QCOMPARE(right({topOfRight, bottomOfRight}), QRect(1920, 220, 1280, 710));
        // A panel between the displays reserves on its own display only.
        QCOMPARE(right({leftOfRight}), QRect(1980, 180, 1220, 800));
        QCOMPARE(left({leftOfRight}), leftDisplay);
        QCOMPARE(left({topOfLeft, whole({0, 0, 50, 0})}), QRect(0, 50, 1920, 1030));
        QCOMPARE(left({whole({40, 0, 0, 60})}), QRect(40, 0, 1880, 1020));
        QCOMPARE(left({whole({0, 0, 700, 700})}), leftDisplay); // would leave nothing
    }

    void nonsenseReservesNothing() {
        QVERIFY(partial({0, 0, 30}).isEmpty());
        QVERIFY(Strut::fromProperties({}, {}).isEmpty());
        QVERIFY(whole({0xffffffff, 0, 0, 70000}).isEmpty());
        // The newer property counts, even if it reserves nothing.
        QVERIFY(Strut::fromProperties(Values(12, 0), {0, 0, 30, 0}).isEmpty());
    }
};

QTEST_GUILESS_MAIN(StrutTest)
#include "StrutTest.moc"
