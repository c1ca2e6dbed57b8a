#include "ShelfGeometry.h"
#include "TestRegistry.h"

#include <QRandomGenerator>
#include <QTest>

#include <cmath>

namespace perchly {

namespace {

using enum ShelfSize;
using enum ShelfEdge;

const Display plain{.frame = {0, 0, 1440, 900}, .visibleFrame = {0, 40, 1440, 830}};
const Display housed{.frame = {0, 0, 1512, 982},
                     .visibleFrame = {0, 60, 1512, 890},
                     .safeAreaTop = 32,
                     .auxiliaryTopLeftArea = ScreenRect{0, 950, 660, 32},
                     .auxiliaryTopRightArea = ScreenRect{852, 950, 660, 32}};
/// To the right of the primary display and higher, with a dock on its left.
const Display second{.frame = {1440, 200, 1920, 1080}, .visibleFrame = {1500, 230, 1860, 1000}};
bool near(const ScreenRect &a, const ScreenRect &b) {
    return std::abs(a.x - b.x) + std::abs(a.y - b.y) + std::abs(a.width - b.width) +
               std::abs(a.height - b.height) <
           1e-6;
}

/// Panels reserve up to a quarter of each side.
class RandomDisplays {
public:
    double between(double low, double high) {
        return low + m_random.generateDouble() * (high - low);
    }
    ShelfEdge edge() { return allShelfEdges.at(m_random.bounded(quint32(allShelfEdges.size()))); }
    Display display(double minSize) {
        const ScreenRect f{between(-5000, 5000), between(-5000, 5000), between(minSize, 5000),
                           between(minSize, 3000)};
        const double left = between(0, f.width / 4);
        const double bottom = between(0, f.height / 4);
        return {.frame = f,
                .visibleFrame = {f.x + left, f.y + bottom, f.width - left - between(0, f.width / 4),
                                 f.height - bottom - between(0, f.height / 4)}};
    }

private:
    QRandomGenerator m_random{20260921};
};

} // namespace

class ShelfGeometryTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void pillGrowsAroundACameraHousing() {
        Display deeper = housed;
        deeper.safeAreaTop = 38;
        QCOMPARE(compactSize({Top, 0.5}, plain), (CompactSize{290, 34, 0}));
        QCOMPARE(compactSize({Top, 0.4501}, housed), (CompactSize{472, 34, 192}));
        QCOMPARE(compactSize({Top, 0.55}, deeper), (CompactSize{290, 38, 0}));
        QCOMPARE(compactSize({Left, 0.5}, housed), (CompactSize{34, 120, 0}));
    }

    void frameDependsOnEdgePositionAndScale() {
        struct Case {
            const char *name;
            ShelfSize size;
            ShelfPosition place;
            double scale;
            Display display;
            ScreenRect expected;
        };
        const Case cases[] = {
            {"open below a camera housing", Expanded, {Top, 0.5}, 1, housed, {426, 463, 660, 519}},
            {"compact is not scaled", Compact, {Top, 0.5}, 1.2, plain, {575, 836, 290, 34}},
            {"open at scale 1.2", Expanded, {Top, 0.5}, 1.2, plain, {324, 247.2, 792, 622.8}},
            {"beside a dock", Expanded, {Left, 0.25}, 1, second, {1500, 230, 694, 519}},
        };
        for (const auto &[name, size, place, scale, display, expected] : cases) {
            QVERIFY2(near(shelfFrame(size, place, scale, display), expected), name);
        }
    }

    void dropDocksAtTheNearestEdge() {
        const Display usual{.frame = {0, 0, 1000, 800}, .visibleFrame = {50, 100, 900, 600}};
        QCOMPARE(dropPlace({140, 800}, usual), (ShelfPosition{Top, 0.1}));
        QCOMPARE(dropPlace({990, 250}, usual), (ShelfPosition{Right, 0.25}));
        QCOMPARE(dropPlace({140, 610}, usual), (ShelfPosition{Top, 0.1})); // tie with the left
        QCOMPARE(dropPlace({756 - 240, 975}, housed), (ShelfPosition{Top, 0.5})); // snaps
        QVERIFY(dropPlace({756 - 241, 975}, housed).position < 0.4);
    }

    void frameNeverExceedsItsArea() {
        RandomDisplays random;
        for (int i = 0; i < 10'000; ++i) {
            const Display display = random.display(1);
            const ShelfPosition place{random.edge(), random.between(-0.5, 1.5)};
            const ScreenRect frame =
                shelfFrame(i % 2 == 0 ? Compact : Expanded, place, random.between(0.1, 3), display);
            const ScreenRect &area = display.visibleFrame;
            const bool inside =
                frame.minX() >= area.minX() - 1e-6 && frame.maxX() <= area.maxX() + 1e-6 &&
                frame.minY() >= area.minY() - 1e-6 && frame.maxY() <= area.maxY() + 1e-6;
            QVERIFY2(inside, qPrintable(QString::number(i)));
        }
    }

    void droppingTheShelfInPlaceChangesNothing() {
        RandomDisplays random;
        for (int i = 0; i < 5'000; ++i) {
            const Display display = random.display(800);
            const ShelfPosition place{random.edge(), random.between(0, 1)};
            const ScreenRect frame = shelfFrame(Compact, place, 1, display);
            const double middle = frame.y + frame.height / 2;
            const ScreenPoint docked = place.edge == Top ? ScreenPoint{frame.midX(), frame.maxY()}
                                       : place.edge == Left ? ScreenPoint{frame.minX(), middle}
                                                            : ScreenPoint{frame.maxX(), middle};
            const ShelfPosition dropped = dropPlace(docked, display);
            const ScreenRect after = shelfFrame(Compact, dropped, 1, display);
            const bool isSame = dropped.edge == place.edge && near(after, frame);
            QVERIFY2(isSame, qPrintable(QString::number(i)));
        }
    }
};

static const RegisteredTest<ShelfGeometryTest> registeredShelfGeometryTest;

} // namespace perchly

#include "ShelfGeometryTest.moc"
