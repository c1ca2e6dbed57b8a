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
    void pixelsBecomePoints() {
        const auto points = [](const Screens &screens, QPoint pixels) {
            const ScreenPoint point = ScreenSpace(screens).fromPixels(pixels);
            return QPointF(point.x, point.y);
        };
        QCOMPARE(points(oneDisplay, {100, 799}), QPointF(100, 0));
        // The origin is the primary display's, wherever that is.
        QCOMPARE(points(mixedDisplays, {3840, 200}), QPointF(0, 1079));
        QCOMPARE(points(mixedDisplays, {1000, 500}), QPointF(-3340, 1029.5));
        // A place beside all displays belongs to the nearest.
        QCOMPARE(points(mixedDisplays, {3850, 190}), QPointF(10, 1089));
        QCOMPARE(points({}, {5, 6}), QPointF(5, -7));
    }

    void rectanglesComeBack() {
        const ScreenSpace space(mixedDisplays);
        for (const QRect rect : {QRect(0, 10, 34, 120), QRect(3900, 100, 10, 10)}) {
            QCOMPARE(space.toQt(space.fromQt(QRectF(rect))), rect);
        }
    }

    void fractionsKeepTheEdgesTogether() {
        const ScreenSpace space(oneDisplay);
        const QRect right = space.toQt({1280 - 763.4, 100.2, 763.4, 570.9});
        QCOMPARE(right.x() + right.width(), 1280);
        const QRect top = space.toQt({244, 800 - 622.8, 792, 622.8});
        QCOMPARE(top, QRect(244, 0, 792, 623));
    }

    void anAreaOfADenseDisplayIsDivided() {
        const ScreenSpace space(mixedDisplays);
        const auto &dense = space.screens()[1];
        QCOMPARE(ScreenSpace::pixelGeometry(dense), QRect(0, 0, 3840, 2400));
        const ScreenRect area = space.fromPixels(QRect(0, 80, 3840, 2320), dense);
        QCOMPARE(area, (ScreenRect{-3840, 80, 1920, 1160}));
    }
};

QTEST_GUILESS_MAIN(ScreenSpaceTest)
#include "ScreenSpaceTest.moc"
