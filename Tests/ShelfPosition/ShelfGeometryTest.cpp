#include "ShelfGeometry.h"
#include "TestRegistry.h"

#include <QRandomGenerator>
#include <QTest>

#include <cmath>
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
const DisplayGeometry leftBelow{.frame = {-1280, -300, 1280, 1024},
                                .visibleFrame = {-1280, -260, 1280, 984}};
/// Smaller than the open shelf in both directions.
const DisplayGeometry tiny{.frame = {10, 20, 640, 480}, .visibleFrame = {10, 60, 600, 400}};

DisplayGeometry withInset(DisplayGeometry display, double inset) {
    display.safeAreaTop = inset;
    return display;
}

bool near(double a, double b) {
    return std::abs(a - b) < 1e-6;
}

bool near(const ScreenRect &a, const ScreenRect &b) {
    return near(a.x, b.x) && near(a.y, b.y) && near(a.width, b.width) && near(a.height, b.height);
}

QString text(const ScreenRect &rect) {
    return QStringLiteral("(%1, %2, %3, %4)")
        .arg(QString::number(rect.x), QString::number(rect.y), QString::number(rect.width),
             QString::number(rect.height));
}

/// Displays that nobody would think of; panels take up to a quarter of each side.
class RandomDisplays {
public:
    double between(double low, double high) {
        return low + m_random.generateDouble() * (high - low);
    }
    ShelfEdge edge() { return allShelfEdges.at(m_random.bounded(quint32(allShelfEdges.size()))); }
    DisplayGeometry display(double smallest) {
        const ScreenRect f{between(-5000, 5000), between(-5000, 5000), between(smallest, 5000),
                           between(smallest, 3000)};
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
    void edgesAreStoredByTheirNames() {
        QVERIFY(shelfEdgeFromName(u"left") == ShelfEdge::Left);
        QVERIFY(shelfEdgeFromName(u"right") == ShelfEdge::Right);
        for (const QStringView other : {u"", u"Top", u"bottom", u"right "}) {
            QVERIFY2(!shelfEdgeFromName(other), qPrintable(other.toString()));
        }
    }

    void compactSizes_data() {
        QTest::addColumn<ShelfPosition>("place");
        QTest::addColumn<DisplayGeometry>("display");
        QTest::addColumn<CompactSize>("expected");
        const auto top = [](const char *name, double position, const DisplayGeometry &display,
                            const CompactSize &expected) {
            QTest::newRow(name) << ShelfPosition{ShelfEdge::Top, position} << display << expected;
        };
        DisplayGeometry oneArea = housed;
        oneArea.auxiliaryTopLeftArea.reset();
        top("without a camera housing it is plain", 0.5, plain, {290, 34, 0});
        top("it wraps around a camera housing", 0.5, housed, {472, 34, 192});
        top("just inside the tolerance it still wraps around", 0.4501, housed, {472, 34, 192});
        top("exactly at the tolerance it is plain", 0.55, housed, {290, 34, 0});
        top("off centre a tall housing decides the height", 0.56, withInset(housed, 38),
            {290, 38, 0});
        top("an inset with only one area has no notch", 0.5, oneArea, {290, 34, 0});
        top("areas without an inset have no notch", 0.5, withInset(housed, 0), {290, 34, 0});
        QTest::newRow("the left edge has a strip, housing or not")
            << ShelfPosition{ShelfEdge::Left, 0.5} << withInset(housed, 200)
            << CompactSize{34, 120, 0};
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
        row("open below a camera housing", Expanded, {Top, 0.5}, 1, housed, {426, 463, 660, 519});
        row("the compact shelf is never scaled and hangs from the very top", Compact, {Top, 0.5},
            1.2, plain, {575, 866, 290, 34});
        row("open at the top with a scale of 1.2", Expanded, {Top, 0.5}, 1.2, plain,
            {324, 277.2, 792, 622.8});
        row("a position far above 1 is the top end", Compact, {Left, 7}, 1, plain,
            {0, 760, 34, 120});
        row("a position that is not a number is the middle", Compact, {Left, notANumber}, 1, plain,
            {0, 400, 34, 120});
        row("at the left of a second display: its border across, its visible frame up", Expanded,
            {Left, 0.25}, 1, second, {1440, 230, 694, 519});
        row("at the right of a display with negative coordinates", Expanded, {Right, 0.5}, 1,
            leftBelow, {-694, -27.5, 694, 519});
        row("larger than the display at the top: the whole display", Expanded, {Top, 0.9}, 1, tiny,
            {10, 20, 640, 480});
        row("larger than the visible frame at the right: flush with the display", Expanded,
            {Right, 0.1}, 1, tiny, {50, 60, 600, 400});
        row("an infinite scale fills the area", Expanded, {Top, 0.5}, infinite, plain,
            {0, 0, 1440, 900});
    }

    void frames() {
        QFETCH(ShelfSize, size);
        QFETCH(ShelfPosition, place);
        QFETCH(double, scale);
        QFETCH(DisplayGeometry, display);
        QFETCH(ScreenRect, expected);
        const ScreenRect actual =
            shelfFrame(size, place.edge, place, compactSize(place, display), scale, display);
        QVERIFY2(near(actual, expected), qPrintable(text(actual)));
    }

    /// Between a change of the stored edge and the next resize, the layout is still the old one.
    void oldLayoutAtTheNewEdge() {
        const ScreenRect frame = shelfFrame(ShelfSize::Expanded, ShelfEdge::Top,
                                            {ShelfEdge::Left, 0.5}, {290, 34, 0}, 1, plain);
        QVERIFY2(near(frame, {0, 200.5, 660, 519}), qPrintable(text(frame)));
    }

    void drops_data() {
        QTest::addColumn<ScreenPoint>("at");
        QTest::addColumn<DisplayGeometry>("display");
        QTest::addColumn<ShelfPosition>("expected");
        using enum ShelfEdge;
        const DisplayGeometry usual{.frame = {0, 0, 1000, 800},
                                    .visibleFrame = {50, 100, 900, 600}};
        const DisplayGeometry nothingVisible{.frame = usual.frame, .visibleFrame = {0, 10, 0, 0}};
        const auto row = [](const char *name, ScreenPoint at, const DisplayGeometry &display,
                            const ShelfPosition &expected) {
            QTest::newRow(name) << at << display << expected;
        };
        row("along the top the display's width counts", {100, 800}, usual, {Top, 0.1});
        row("along a side the visible height counts", {990, 250}, usual, {Right, 0.25});
        row("as far from the top as from the left is the top", {100, 700}, usual, {Top, 0.1});
        row("as far from the left as from the right is the left", {500, 100}, usual, {Left, 0});
        row("a hair nearer to the right is the right", {500.01, 100}, usual, {Right, 0});
        row("far beyond a corner stays within the edge", {5000, 801}, usual, {Top, 1});
        row("a display left of the primary one and below it", {-5, 232}, leftBelow, {Right, 0.5});
        row("an empty display does not divide by zero", {0, 0}, {}, {Top, 0});
        row("nothing visible does not divide by zero", {0, 10}, nothingVisible, {Left, 0});
    }

    void drops() {
        QFETCH(ScreenPoint, at);
        QFETCH(DisplayGeometry, display);
        QFETCH(ShelfPosition, expected);
        const ShelfPosition actual = ShelfPosition::drop(at, display.frame, display.visibleFrame);
        QCOMPARE(shelfEdgeName(actual.edge), shelfEdgeName(expected.edge));
        QCOMPARE(actual.position, expected.position);
    }

    void theFrameIsAlwaysInsideItsArea() {
        RandomDisplays random;
        for (int i = 0; i < 10'000; ++i) {
            const DisplayGeometry display = random.display(1);
            const ShelfPosition place{random.edge(), random.between(-0.5, 1.5)};
            const ShelfEdge layout = random.edge();
            const ScreenRect frame = shelfFrame(
                i % 2 == 0 ? ShelfSize::Compact : ShelfSize::Expanded, layout, place,
                compactSize({layout, place.position}, display), random.between(0.1, 3), display);
            const ScreenRect &columns = display.frame;
            const ScreenRect &rows =
                place.edge == ShelfEdge::Top ? display.frame : display.visibleFrame;
            const bool inside =
                frame.minX() >= columns.minX() - 1e-6 && frame.maxX() <= columns.maxX() + 1e-6 &&
                frame.minY() >= rows.minY() - 1e-6 && frame.maxY() <= rows.maxY() + 1e-6;
            QVERIFY2(inside, qPrintable(text(frame) + text(columns) + text(rows)));
        }
    }

    /// Let go where it is docked, the shelf must not move: not to another edge, not along its own.
    void lettingGoWhereItIsDockedChangesNothing() {
        RandomDisplays random;
        for (int i = 0; i < 5'000; ++i) {
            const DisplayGeometry display = random.display(800);
            const ShelfPosition place{random.edge(), random.between(0, 1)};
            const auto frameAt = [&](const ShelfPosition &where) {
                return shelfFrame(ShelfSize::Compact, place.edge, where,
                                  compactSize(place, display), 1, display);
            };
            const ScreenRect frame = frameAt(place);
            const double middle = frame.y + frame.height / 2;
            const ScreenPoint docked =
                place.edge == ShelfEdge::Top    ? ScreenPoint{frame.midX(), frame.maxY()}
                : place.edge == ShelfEdge::Left ? ScreenPoint{frame.minX(), middle}
                                                : ScreenPoint{frame.maxX(), middle};
            const ShelfPosition dropped =
                ShelfPosition::drop(docked, display.frame, display.visibleFrame);
            QVERIFY2(dropped.edge == place.edge && near(frameAt(dropped), frame),
                     qPrintable(text(frame) + text(frameAt(dropped)) + text(display.frame)));
        }
    }
};

static const RegisteredTest<ShelfGeometryTest> registeredShelfGeometryTest;

} // namespace perchly

#include "ShelfGeometryTest.moc"
