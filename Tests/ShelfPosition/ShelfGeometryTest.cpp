#include "ShelfGeometry.h"
#include "TestRegistry.h"

#include <QRandomGenerator>
#include <QTest>

#include <cmath>
#include <limits>

namespace perchly {

namespace {

using enum ShelfSize;
using enum ShelfEdge;

constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

const Display plain{.frame = {0, 0, 1440, 900}, .visibleFrame = {0, 40, 1440, 840}};
const Display housed{.frame = {0, 0, 1512, 982},
                     .visibleFrame = {0, 60, 1512, 890},
                     .safeAreaTop = 32,
                     .auxiliaryTopLeftArea = ScreenRect{0, 950, 660, 32},
                     .auxiliaryTopRightArea = ScreenRect{852, 950, 660, 32}};
/// To the right of the primary display and higher, with a dock on its left.
const Display second{.frame = {1440, 200, 1920, 1080}, .visibleFrame = {1500, 230, 1860, 1000}};
const Display leftBelow{.frame = {-1280, -300, 1280, 1024},
                        .visibleFrame = {-1280, -260, 1280, 984}};
/// Smaller than the open shelf in both directions.
const Display tiny{.frame = {10, 20, 640, 480}, .visibleFrame = {10, 60, 600, 400}};

Display withInset(Display display, double inset) {
    display.safeAreaTop = inset;
    return display;
}

bool near(const ScreenRect &a, const ScreenRect &b) {
    return std::abs(a.x - b.x) + std::abs(a.y - b.y) + std::abs(a.width - b.width) +
               std::abs(a.height - b.height) <
           1e-6;
}

QByteArray text(const ScreenRect &rect) {
    return QStringLiteral("(%1, %2, %3, %4) ")
        .arg(rect.x)
        .arg(rect.y)
        .arg(rect.width)
        .arg(rect.height)
        .toUtf8();
}

/// Panels take up to a quarter of each side.
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
    void compactSizes() {
        const auto top = [](double position, const Display &display) {
            return compactSize({Top, position}, display);
        };
        QCOMPARE(top(0.5, plain), (CompactSize{290, 34, 0}));
        QCOMPARE(top(0.5, housed), (CompactSize{472, 34, 192}));
        QCOMPARE(top(0.4501, housed), (CompactSize{472, 34, 192}));
        QCOMPARE(top(0.55, withInset(housed, 38)), (CompactSize{290, 38, 0}));
        QCOMPARE(top(0.5, withInset(housed, 0)), (CompactSize{290, 34, 0}));
        QCOMPARE(compactSize({Left, 0.5}, withInset(housed, 200)), (CompactSize{34, 120, 0}));
    }

    void frames_data() {
        QTest::addColumn<ShelfSize>("size");
        QTest::addColumn<ShelfPosition>("place");
        QTest::addColumn<double>("scale");
        QTest::addColumn<Display>("display");
        QTest::addColumn<ScreenRect>("expected");
        const auto row = [](const char *name, ShelfSize size, ShelfPosition place, double scale,
                            const Display &display, const ScreenRect &expected) {
            QTest::newRow(name) << size << place << scale << display << expected;
        };
        row("open below a camera housing", Expanded, {Top, 0.5}, 1, housed, {426, 463, 660, 519});
        row("compact is not scaled", Compact, {Top, 0.5}, 1.2, plain, {575, 866, 290, 34});
        row("open at scale 1.2", Expanded, {Top, 0.5}, 1.2, plain, {324, 277.2, 792, 622.8});
        row("position above 1", Compact, {Left, 7}, 1, plain, {0, 760, 34, 120});
        row("position is NaN", Compact, {Left, notANumber}, 1, plain, {0, 400, 34, 120});
        row("left edge: display's border, visible height", Expanded, {Left, 0.25}, 1, second,
            {1440, 230, 694, 519});
        row("negative coordinates", Expanded, {Right, 0.5}, 1, leftBelow, {-694, -27.5, 694, 519});
        row("display too small, top", Expanded, {Top, 0.9}, 1, tiny, {10, 20, 640, 480});
        row("display too small, right", Expanded, {Right, 0.1}, 1, tiny, {50, 60, 600, 400});
        row("infinite scale", Expanded, {Top, 0.5}, infinite, plain, {0, 0, 1440, 900});
    }

    void frames() {
        QFETCH(ShelfSize, size);
        QFETCH(ShelfPosition, place);
        QFETCH(double, scale);
        QFETCH(Display, display);
        QFETCH(ScreenRect, expected);
        const ScreenRect actual = shelfFrame(size, place, scale, display);
        QVERIFY2(near(actual, expected), text(actual));
    }

    void drops() {
        const Display usual{.frame = {0, 0, 1000, 800}, .visibleFrame = {50, 100, 900, 600}};
        QCOMPARE(dropPlace({100, 800}, usual), (ShelfPosition{Top, 0.1}));
        QCOMPARE(dropPlace({990, 250}, usual), (ShelfPosition{Right, 0.25}));
        QCOMPARE(dropPlace({100, 700}, usual), (ShelfPosition{Top, 0.1})); // tie with the left
        QCOMPARE(dropPlace({500, 100}, usual), (ShelfPosition{Left, 0}));  // tie with the right
        QCOMPARE(dropPlace({5000, 801}, usual), (ShelfPosition{Top, 1}));  // beyond a corner
        QCOMPARE(dropPlace({-5, 232}, leftBelow), (ShelfPosition{Right, 0.5}));
        QCOMPARE(dropPlace({0, 0}, Display{}), (ShelfPosition{Top, 0}));
        QCOMPARE(dropPlace({756 - 240, 975}, housed), (ShelfPosition{Top, 0.5})); // snaps
        QVERIFY(dropPlace({756 - 241, 975}, housed).position < 0.4);
    }

    void frameIsAlwaysInsideItsArea() {
        RandomDisplays random;
        for (int i = 0; i < 10'000; ++i) {
            const Display display = random.display(1);
            const ShelfPosition place{random.edge(), random.between(-0.5, 1.5)};
            const ScreenRect frame =
                shelfFrame(i % 2 == 0 ? Compact : Expanded, place, random.between(0.1, 3), display);
            const ScreenRect &columns = display.frame;
            const ScreenRect &rows = place.edge == Top ? display.frame : display.visibleFrame;
            const bool inside =
                frame.minX() >= columns.minX() - 1e-6 && frame.maxX() <= columns.maxX() + 1e-6 &&
                frame.minY() >= rows.minY() - 1e-6 && frame.maxY() <= rows.maxY() + 1e-6;
            QVERIFY2(inside, text(frame) + text(columns) + text(rows));
        }
    }

    void droppingWhereItIsDockedChangesNothing() {
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
            QVERIFY2(dropped.edge == place.edge && near(after, frame), text(frame) + text(after));
        }
    }
};

static const RegisteredTest<ShelfGeometryTest> registeredShelfGeometryTest;

} // namespace perchly

#include "ShelfGeometryTest.moc"
