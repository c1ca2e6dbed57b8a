#include "GeometryOutput.h"
#include "TestRegistry.h"

namespace perchly {

class DropTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void drops_data() {
        QTest::addColumn<ScreenPoint>("at");
        QTest::addColumn<ScreenRect>("screen");
        QTest::addColumn<ScreenRect>("usable");
        QTest::addColumn<ShelfPosition>("expected");
        using enum ShelfEdge;

        const ScreenRect screen{0, 0, 1000, 800};
        const ScreenRect usable{50, 100, 900, 600};
        const auto primary = [&](const char *name, ScreenPoint at, ShelfPosition expected) {
            QTest::newRow(name) << at << screen << usable << expected;
        };
        primary("near the top", {500, 790}, {Top, 0.5});
        primary("along the top it is the display's width that counts, not the visible one",
                {100, 800}, {Top, 0.1});
        primary("near the left", {10, 400}, {Left, 0.5});
        primary("near the right", {990, 250}, {Right, 0.25});
        primary("along a side it is the visible height that counts", {0, 700}, {Left, 1});
        primary("beside the panel at the bottom is the bottom end", {0, 20}, {Left, 0});
        primary("as far from the top as from the left is the top", {100, 700}, {Top, 0.1});
        primary("as far from the top as from the right is the top", {900, 700}, {Top, 0.9});
        primary("the top left corner is the top", {0, 800}, {Top, 0});
        primary("as far from the left as from the right is the left", {500, 100}, {Left, 0});
        primary("a hair nearer to the right is the right", {500.01, 100}, {Right, 0});
        primary("a hair nearer to the left than to the top is the left", {99.99, 700}, {Left, 1});
        primary("above the display is its top", {300, 850}, {Top, 0.3});
        primary("beyond the left border is the left edge", {-40, 400}, {Left, 0.5});
        primary("far beyond a corner stays within the edge", {5000, 801}, {Top, 1});
        primary("far below the display stays within the edge", {2, -5000}, {Left, 0});

        const ScreenRect leftBelow{-1280, -300, 1280, 1024};
        const ScreenRect leftBelowUsable{-1280, -260, 1280, 984};
        const auto negative = [&](const char *name, ScreenPoint at, ShelfPosition expected) {
            QTest::newRow(name) << at << leftBelow << leftBelowUsable << expected;
        };
        negative("the right border of a display left of the primary one", {-5, 232}, {Right, 0.5});
        negative("the left border of that display", {-1279, -14}, {Left, 0.25});
        negative("the top border of that display", {-960, 720}, {Top, 0.25});

        QTest::newRow("a display above and to the right counts from its own origin")
            << ScreenPoint{1440, 730} << ScreenRect{1440, 200, 1920, 1080}
            << ScreenRect{1500, 230, 1860, 1000} << ShelfPosition{Left, 0.5};
        QTest::newRow("an empty display does not divide by zero")
            << ScreenPoint{0, 0} << ScreenRect{} << ScreenRect{} << ShelfPosition{Top, 0};
        QTest::newRow("an empty visible frame does not divide by zero")
            << ScreenPoint{0, 10} << screen << ScreenRect{0, 10, 1000, 0} << ShelfPosition{Left, 0};
    }

    void drops() {
        QFETCH(ScreenPoint, at);
        QFETCH(ScreenRect, screen);
        QFETCH(ScreenRect, usable);
        QFETCH(ShelfPosition, expected);
        const ShelfPosition actual = ShelfPosition::drop(at, screen, usable);
        QVERIFY2(actual.edge == expected.edge && near(actual.position, expected.position),
                 difference(actual, expected).constData());
    }
};

static const RegisteredTest<DropTest> registered;

} // namespace perchly

#include "DropTest.moc"
