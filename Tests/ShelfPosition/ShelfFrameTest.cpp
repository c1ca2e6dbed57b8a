#include "GeometryOutput.h"
#include "TestRegistry.h"

#include <limits>

namespace perchly {

namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

const DisplayGeometry plain{.frame = {0, 0, 1440, 900}, .visibleFrame = {0, 40, 1440, 840}};

const DisplayGeometry housed{.frame = {0, 0, 1512, 982},
                             .visibleFrame = {0, 60, 1512, 890},
                             .safeAreaTop = 32,
                             .auxiliaryTopLeftArea = ScreenRect{0, 950, 660, 32},
                             .auxiliaryTopRightArea = ScreenRect{852, 950, 660, 32}};

/// To the right of the primary display and higher; a dock on its left, panels above and below.
const DisplayGeometry second{.frame = {1440, 200, 1920, 1080},
                             .visibleFrame = {1500, 230, 1860, 1000}};

/// To the left of the primary display and partly below it.
const DisplayGeometry leftBelow{.frame = {-1280, -300, 1280, 1024},
                                .visibleFrame = {-1280, -260, 1280, 984}};

/// Smaller than the open shelf in both directions.
const DisplayGeometry tiny{.frame = {10, 20, 640, 480}, .visibleFrame = {10, 60, 600, 400}};

DisplayGeometry without(DisplayGeometry display, std::optional<ScreenRect> DisplayGeometry::*area) {
    display.*area = std::nullopt;
    return display;
}

DisplayGeometry withInset(DisplayGeometry display, double inset) {
    display.safeAreaTop = inset;
    return display;
}

} // namespace

class ShelfFrameTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void edgesAreStoredByTheirNames() {
        QVERIFY(shelfEdgeFromName(u"top") == ShelfEdge::Top);
        QVERIFY(shelfEdgeFromName(u"left") == ShelfEdge::Left);
        QVERIFY(shelfEdgeFromName(u"right") == ShelfEdge::Right);
        for (const QStringView other : {u"", u"Top", u"LEFT", u"bottom", u"right "}) {
            QVERIFY2(!shelfEdgeFromName(other), qPrintable(other.toString()));
        }
    }

    void compactSizes_data() {
        QTest::addColumn<ShelfPosition>("place");
        QTest::addColumn<DisplayGeometry>("display");
        QTest::addColumn<CompactSize>("expected");
        const auto top = [](double position) { return ShelfPosition{ShelfEdge::Top, position}; };
        const CompactSize pill{290, 34, 0};
        const CompactSize around{472, 34, 192};
        const CompactSize strip{34, 120, 0};

        QTest::newRow("a display without a camera housing has the plain pill")
            << top(0.5) << plain << pill;
        QTest::newRow("the pill wraps around a camera housing") << top(0.5) << housed << around;
        QTest::newRow("just inside the tolerance on the left the pill still wraps around")
            << top(0.4501) << housed << around;
        QTest::newRow("just inside the tolerance on the right the pill still wraps around")
            << top(0.5499) << housed << around;
        QTest::newRow("just outside the tolerance on the left the pill is plain")
            << top(0.4499) << housed << pill;
        QTest::newRow("exactly at the tolerance on the right the pill is plain")
            << top(0.55) << housed << pill;
        QTest::newRow("off centre a tall housing still decides the height")
            << top(0.56) << withInset(housed, 38) << CompactSize{290, 38, 0};
        QTest::newRow("a tall housing decides the height at the centre")
            << top(0.5) << withInset(housed, 38) << CompactSize{472, 38, 192};
        QTest::newRow("an inset with only a right area has no notch")
            << top(0.5) << without(housed, &DisplayGeometry::auxiliaryTopLeftArea) << pill;
        QTest::newRow("an inset with only a left area has no notch")
            << top(0.5) << without(housed, &DisplayGeometry::auxiliaryTopRightArea) << pill;
        QTest::newRow("areas without an inset have no notch")
            << top(0.5) << withInset(housed, 0) << pill;
        DisplayGeometry overlapping = housed;
        overlapping.auxiliaryTopRightArea->x = 600;
        QTest::newRow("overlapping areas have no notch") << top(0.5) << overlapping << pill;
        QTest::newRow("a position that is not a number is not centred")
            << top(notANumber) << housed << pill;
        QTest::newRow("an infinite position is not centred") << top(infinite) << housed << pill;
        QTest::newRow("the left edge has a strip, housing or not")
            << ShelfPosition{ShelfEdge::Left, 0.5} << withInset(housed, 200) << strip;
        QTest::newRow("the right edge has a strip")
            << ShelfPosition{ShelfEdge::Right, 0.5} << plain << strip;
    }

    void compactSizes() {
        QFETCH(ShelfPosition, place);
        QFETCH(DisplayGeometry, display);
        QFETCH(CompactSize, expected);
        const CompactSize actual = compactSize(place, display);
        QCOMPARE(actual.width, expected.width);
        QCOMPARE(actual.height, expected.height);
        QCOMPARE(actual.notchWidth, expected.notchWidth);
    }

    void frames_data() {
        QTest::addColumn<ShelfSize>("size");
        QTest::addColumn<ShelfPosition>("place");
        QTest::addColumn<double>("scale");
        QTest::addColumn<DisplayGeometry>("display");
        QTest::addColumn<ScreenRect>("expected");
        using enum ShelfSize;
        using enum ShelfEdge;

        const auto row = [](const char *name, ShelfSize size, ShelfPosition place, double scale,
                            const DisplayGeometry &display, const ScreenRect &expected) {
            QTest::newRow(name) << size << place << scale << display << expected;
        };
        row("compact around a camera housing", Compact, {Top, 0.5}, 1, housed, {520, 948, 472, 34});
        row("open below a camera housing", Expanded, {Top, 0.5}, 1, housed, {426, 463, 660, 519});
        row("compact at the top centre hangs from the very top, over the panels", Compact,
            {Top, 0.5}, 1, plain, {575, 866, 290, 34});
        row("the compact shelf is never scaled", Compact, {Top, 0.5}, 1.2, plain,
            {575, 866, 290, 34});
        row("open at the top with a scale of 1.2", Expanded, {Top, 0.5}, 1.2, plain,
            {324, 277.2, 792, 622.8});
        row("open at the top with a scale of 0.85", Expanded, {Top, 0.5}, 0.85, plain,
            {439.5, 458.85, 561, 441.15});
        row("compact at the left is centred in the visible frame", Compact, {Left, 0.5}, 1, plain,
            {0, 400, 34, 120});
        row("open at the left", Expanded, {Left, 0.5}, 1, plain, {0, 200.5, 694, 519});
        row("compact at the right is flush with the right border", Compact, {Right, 0.5}, 1, plain,
            {1406, 400, 34, 120});
        row("open at the right", Expanded, {Right, 0.5}, 1, plain, {746, 200.5, 694, 519});
        row("the left end of the top edge", Compact, {Top, 0}, 1, plain, {0, 866, 290, 34});
        row("the right end of the top edge", Compact, {Top, 1}, 1, plain, {1150, 866, 290, 34});
        row("the bottom end of the left edge stays above the panel", Compact, {Left, 0}, 1, plain,
            {0, 40, 34, 120});
        row("the top end of the right edge stays below the panel", Compact, {Right, 1}, 1, plain,
            {1406, 760, 34, 120});
        row("a position far below 0 is the left end", Compact, {Top, -1e300}, 1, plain,
            {0, 866, 290, 34});
        row("a position far above 1 is the top end", Compact, {Left, 7}, 1, plain,
            {0, 760, 34, 120});
        row("a position that is not a number is the middle", Compact, {Left, notANumber}, 1, plain,
            {0, 400, 34, 120});
        row("an infinite position is the middle, not an end", Compact, {Top, infinite}, 1, plain,
            {575, 866, 290, 34});
        row("a negative infinite position is the middle", Compact, {Right, -infinite}, 1, plain,
            {1406, 400, 34, 120});
        row("at the top of a second display with an offset", Compact, {Top, 0.5}, 1, second,
            {2255, 1246, 290, 34});
        row("at the left of a second display: its border across, its visible frame up", Expanded,
            {Left, 0.25}, 1, second, {1440, 230, 694, 519});
        row("at the right of a second display", Compact, {Right, 0.75}, 1, second,
            {3326, 920, 34, 120});
        row("at the right of a display with negative coordinates", Expanded, {Right, 0.5}, 1,
            leftBelow, {-694, -27.5, 694, 519});
        row("at the top of a display with negative coordinates", Compact, {Top, 0.25}, 1, leftBelow,
            {-1105, 690, 290, 34});
        row("larger than the display at the top: the whole display", Expanded, {Top, 0.9}, 1, tiny,
            {10, 20, 640, 480});
        row("larger than the visible frame at the left: from its bottom", Expanded, {Left, 0.9}, 1,
            tiny, {10, 60, 600, 400});
        row("larger than the visible frame at the right: flush with the display", Expanded,
            {Right, 0.1}, 1, tiny, {50, 60, 600, 400});
        row("an infinite scale fills the area", Expanded, {Top, 0.5}, infinite, plain,
            {0, 0, 1440, 900});
        row("a strip taller than the visible frame is limited to it", Compact, {Left, 0.5}, 1,
            {.frame = {0, 0, 800, 200}, .visibleFrame = {0, 50, 800, 100}}, {0, 50, 34, 100});
    }

    void frames() {
        QFETCH(ShelfSize, size);
        QFETCH(ShelfPosition, place);
        QFETCH(double, scale);
        QFETCH(DisplayGeometry, display);
        QFETCH(ScreenRect, expected);
        const ScreenRect actual =
            shelfFrame(size, place.edge, place, compactSize(place, display), scale, display);
        QVERIFY2(near(actual, expected), difference(actual, expected).constData());
    }

    /// Between a change of the stored edge and the next resize, the layout is still the old one.
    void oldLayoutAtTheNewEdge() {
        const CompactSize pill{290, 34, 0};
        const CompactSize strip{34, 120, 0};
        const auto check = [](const ScreenRect &actual, const ScreenRect &expected) {
            QVERIFY2(near(actual, expected), difference(actual, expected).constData());
        };
        check(
            shelfFrame(ShelfSize::Expanded, ShelfEdge::Top, {ShelfEdge::Left, 0.5}, pill, 1, plain),
            {0, 200.5, 660, 519});
        check(
            shelfFrame(ShelfSize::Compact, ShelfEdge::Top, {ShelfEdge::Right, 0.5}, pill, 1, plain),
            {1150, 443, 290, 34});
        check(shelfFrame(ShelfSize::Expanded, ShelfEdge::Left, {ShelfEdge::Top, 0.5}, strip, 1,
                         plain),
              {373, 381, 694, 519});
    }

    void snappingReachesBeyondThePill() {
        QCOMPARE(notchGap(housed), std::optional(192.0));
        QCOMPARE(notchSnapDistance(192), 241.0);
        QVERIFY(!notchGap(plain));
        QVERIFY(!notchGap(withInset(housed, 0)));
    }
};

static const RegisteredTest<ShelfFrameTest> registered;

} // namespace perchly

#include "ShelfFrameTest.moc"
