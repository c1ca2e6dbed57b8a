#include "ScreenSpace.h"
#include "Strut.h"

#include <QTest>

using namespace perchly;

namespace {

using Screens = QList<ScreenSpace::Screen>;

const Screens oneDisplay{{QRect(0, 0, 1280, 800), 1}};
// The primary display is on the right; the other one is taller and has twice the pixel density.
const Screens mixedDisplays{{QRect(3840, 200, 1920, 1080), 1}, {QRect(0, 0, 1920, 1200), 2}};

constexpr QSize xScreen(3200, 1080);
constexpr QRect leftDisplay(0, 0, 1920, 1080);
constexpr QRect rightDisplay(1920, 180, 1280, 800);

Strut partial(const QList<quint32> &values) {
    return Strut::fromProperties(values, {});
}

// _NET_WM_STRUT, along the whole edge.
Strut whole(const QList<quint32> &values) {
    return Strut::fromProperties({}, values);
}

} // namespace

class ScreenAreasTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void pixelsAreConvertedToPoints() {
        const auto points = [](const Screens &screens, QPoint pixels) {
            const ScreenPoint point = ScreenSpace(screens).fromPixels(pixels);
            return QPointF(point.x, point.y);
        };
        QCOMPARE(points(oneDisplay, {100, 799}), QPointF(100, 0));
        // The origin is the primary display's, wherever it is.
        QCOMPARE(points(mixedDisplays, {3840, 200}), QPointF(0, 1079));
        QCOMPARE(points(mixedDisplays, {1000, 500}), QPointF(-3340, 1029.5));
        // A point outside all displays belongs to the nearest display.
        QCOMPARE(points(mixedDisplays, {3850, 190}), QPointF(10, 1089));
        QCOMPARE(points({}, {5, 6}), QPointF(5, -7));
    }

    void rectanglesAreConverted() {
        const ScreenSpace space(mixedDisplays);
        for (const QRect rect : {QRect(0, 10, 34, 120), QRect(3900, 100, 10, 10)}) {
            QCOMPARE(space.toQt(space.fromQt(QRectF(rect))), rect);
        }
        const ScreenRect area = space.fromPixels(QRect(0, 80, 3840, 2320), space.screens()[1]);
        QCOMPARE(area, (ScreenRect{-3840, 80, 1920, 1160}));
        // Fractions leave no gaps at the edges.
        const ScreenSpace one(oneDisplay);
        const QRect right = one.toQt({1280 - 763.4, 100.2, 763.4, 570.9});
        QCOMPARE(right.x() + right.width(), 1280);
        QCOMPARE(one.toQt({244, 800 - 622.8, 792, 622.8}), QRect(244, 0, 792, 623));
    }

    void strutsReserveSpaceOnTheirDisplay() {
        const auto left = [](const QList<Strut> &struts) {
            return visibleArea(leftDisplay, xScreen, struts);
        };
        const auto right = [](const QList<Strut> &struts) {
            return visibleArea(rightDisplay, xScreen, struts);
        };
        const Strut topOfLeft = partial({0, 0, 30, 0, 0, 0, 0, 0, 0, 1919, 0, 0});
        const Strut topOfRight = partial({0, 0, 220, 0, 0, 0, 0, 0, 1920, 3199, 0, 0});
        const Strut bottomOfRight = partial({0, 0, 0, 150, 0, 0, 0, 0, 0, 0, 1920, 3199});
        const Strut leftOfRight = partial({1980, 0, 0, 0, 180, 979, 0, 0, 0, 0, 0, 0});
        QCOMPARE(left({topOfLeft}), QRect(0, 30, 1920, 1050));
        QCOMPARE(right({topOfLeft}), rightDisplay);
        QCOMPARE(right({topOfRight, bottomOfRight}), QRect(1920, 220, 1280, 710));
        QCOMPARE(right({leftOfRight}), QRect(1980, 180, 1220, 800));
        QCOMPARE(left({leftOfRight}), leftDisplay);
        QCOMPARE(left({topOfLeft, whole({0, 0, 50, 0})}), QRect(0, 50, 1920, 1030));
        QCOMPARE(left({whole({40, 0, 0, 60})}), QRect(40, 0, 1880, 1020));
        QCOMPARE(left({whole({0, 0, 700, 700})}), leftDisplay); // would leave nothing visible
        QVERIFY(whole({0xffffffff, 0, 0, 70000}).isEmpty());
        // The newer property takes precedence, even if it reserves nothing.
        QVERIFY(Strut::fromProperties(QList<quint32>(12, 0), {0, 0, 30, 0}).isEmpty());
    }
};

QTEST_GUILESS_MAIN(ScreenAreasTest)
#include "ScreenAreasTest.moc"
