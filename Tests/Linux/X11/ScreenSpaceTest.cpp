#include "ScreenSpace.h"

#include <QTest>

using namespace perchly;

namespace {

using Screens = QList<ScreenSpace::Screen>;

const Screens oneDisplay{{QRect(0, 0, 1280, 800), 1}};
// The primary display stands on the right; the other one is taller and twice as dense.
const Screens mixedDisplays{{QRect(3840, 200, 1920, 1080), 1}, {QRect(0, 0, 1920, 1200), 2}};

} // namespace

class ScreenSpaceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void pixelsBecomePoints_data();
    void pixelsBecomePoints();
    void rectanglesComeBack_data();
    void rectanglesComeBack();
    void fractionsKeepTheEdgesTogether();
    void anAreaOfADenseDisplayIsDivided();
};

void ScreenSpaceTest::pixelsBecomePoints_data() {
    QTest::addColumn<Screens>("screens");
    QTest::addColumn<QPoint>("pixels");
    QTest::addColumn<QPointF>("expected");

    QTest::newRow("the bottom left pixel is at the origin")
        << oneDisplay << QPoint(0, 799) << QPointF(0, 0);
    QTest::newRow("y grows upwards") << oneDisplay << QPoint(100, 0) << QPointF(100, 799);
    QTest::newRow("the origin is the primary display's, wherever it stands")
        << mixedDisplays << QPoint(3840, 200) << QPointF(0, 1079);
    QTest::newRow("a dense display counts two pixels as a point")
        << mixedDisplays << QPoint(1000, 500) << QPointF(-3340, 1029.5);
    QTest::newRow("a place beside all displays belongs to the nearest")
        << mixedDisplays << QPoint(3850, 190) << QPointF(10, 1089);
    QTest::newRow("without displays pixels are points")
        << Screens{} << QPoint(5, 6) << QPointF(5, -7);
}

void ScreenSpaceTest::pixelsBecomePoints() {
    QFETCH(Screens, screens);
    QFETCH(QPoint, pixels);
    QFETCH(QPointF, expected);

    const ScreenPoint point = ScreenSpace(screens).fromPixels(pixels);
    QCOMPARE(QPointF(point.x, point.y), expected);
}

void ScreenSpaceTest::rectanglesComeBack_data() {
    QTest::addColumn<Screens>("screens");
    QTest::addColumn<QRect>("rect");

    QTest::newRow("on the only display") << oneDisplay << QRect(495, 0, 290, 34);
    QTest::newRow("on a display left of the primary one") << mixedDisplays << QRect(0, 10, 34, 120);
    QTest::newRow("above the primary display") << mixedDisplays << QRect(3900, 100, 10, 10);
}

void ScreenSpaceTest::rectanglesComeBack() {
    QFETCH(Screens, screens);
    QFETCH(QRect, rect);

    const ScreenSpace space(screens);
    QCOMPARE(space.toToolkit(space.fromToolkit(QRectF(rect))), rect);
}

void ScreenSpaceTest::fractionsKeepTheEdgesTogether() {
    const ScreenSpace space(oneDisplay);
    const QRect right = space.toToolkit({1280 - 763.4, 100.2, 763.4, 570.9});
    QCOMPARE(right.x() + right.width(), 1280);
    const QRect top = space.toToolkit({244, 800 - 622.8, 792, 622.8});
    QCOMPARE(top, QRect(244, 0, 792, 623));
}

void ScreenSpaceTest::anAreaOfADenseDisplayIsDivided() {
    const ScreenSpace space(mixedDisplays);
    const auto &dense = space.screens()[1];
    QCOMPARE(ScreenSpace::pixelGeometry(dense), QRect(0, 0, 3840, 2400));
    const ScreenRect area = space.fromPixels(QRect(0, 80, 3840, 2320), dense);
    QCOMPARE(area, (ScreenRect{-3840, 80, 1920, 1160}));
}

QTEST_GUILESS_MAIN(ScreenSpaceTest)
#include "ScreenSpaceTest.moc"
