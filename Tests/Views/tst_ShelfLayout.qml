import QtQuick
import Perchly.Look

ShelfTestCase {
    id: root

    function test_openShelfLiesAgainstItsEdge_data() {
        return [
            { tag: "top", edge: "top", scale: 1, x: 26, y: 0, width: 660 },
            { tag: "top, larger", edge: "top", scale: 1.2, x: 26, y: 0, width: 792 },
            { tag: "left", edge: "left", scale: 1, x: 0, y: 72, width: 694 },
            { tag: "right", edge: "right", scale: 1, x: 26, y: 72, width: 694 },
            { tag: "right, smaller", edge: "right", scale: 0.85, x: 26, y: 65, width: 590 }
        ];
    }

    function test_openShelfLiesAgainstItsEdge(data) {
        root.fixture.prefer("shelfScale", data.scale);
        root.open(data.edge);
        const rest = root.view.layout.outline;
        compare(Qt.size(rest.width, rest.height), data.edge === "top" ? Qt.size(290, 34) : Qt.size(34, 120));
        compare(root.view.shapeRect, rest);
        compare(root.view.shapeRadius, 17);
        root.expand();
        compare(root.view.layout.outline, Qt.rect(data.x, data.y, data.width, Math.round(429 * data.scale)));
        compare(root.view.shapeRect, root.view.layout.outline);
        fuzzyCompare(root.view.layout.radius, 28 * data.scale, 1e-6);
    }

    function test_compactContentMakesItLower() {
        root.fixture.prefer("compactMode", true);
        root.open("top");
        root.expand();
        compare(root.view.layout.outline.height, 34 + 12 + 110 + 8 + 16 + 8 + 88 + 8 + 20 + 8 + 16 + 18);
    }

    function test_aStripAtTheEndOfItsEdgeOpensInside() {
        root.open("right");
        root.view.compactRect = Qt.rect(26 + 660, 26, 34, 120);
        root.expand();
        compare(root.view.layout.outline.y, 26);
        root.view.compactRect = Qt.rect(26 + 660, 26 + 519 - 120, 34, 120);
        compare(root.view.layout.outline.y, 26 + 519 - 429);
    }

    function test_aSmallDisplayMakesItSmaller() {
        root.open("top");
        root.fit(600, 400);
        root.fixture.setExpanded(true);
        root.settle();
        verify(root.view.layout.outline.width <= 602);
        verify(root.view.layout.outline.height <= 402);
    }

    function test_theOutlineMovesWithoutJumps() {
        root.fixture.reduceMotion(false);
        root.open("top");
        root.fit(660, 519);
        root.fixture.setExpanded(true);
        tryVerify(() => root.view.openness.value > 0.5);
        const before = root.view.layout.outline.height;
        root.fixture.setExpanded(false);
        verify(Math.abs(root.view.layout.outline.height - before) < 1);
        root.settle();
        compare(root.view.layout.outline.height, 34);
        compare(root.view.openness.value, 0);
    }

    function test_sideShelfIsUncoveredAndGoesAtOnce() {
        root.fixture.reduceMotion(false);
        root.open("left");
        compare(root.view.sideReveal.value, 0);
        root.fit(694, 519);
        root.fixture.setExpanded(true);
        verify(root.view.sideReveal.value < 0.1);
        root.settle();
        compare(root.view.sideReveal.value, 1);
        root.fixture.setExpanded(false);
        compare(root.view.sideReveal.value, 0);
        verify(root.view.openness.value > 0.9);
    }

    function test_withoutACompositorItJumps() {
        root.open("right", { composited: false, shadowMargin: 0 });
        root.fit(694, 519);
        root.fixture.setExpanded(true);
        compare(root.view.openness.value, 1);
        compare(root.view.sideReveal.value, 1);
        compare(root.view.layout.outline.width, 694);
        root.fixture.setExpanded(false);
        compare(root.view.layout.outline.width, 34);
    }

    function test_anotherEdgeWhileOpenShowsTheWholeShelf() {
        root.open("top");
        root.expand();
        root.fixture.dock("left");
        root.fit(694, 519);
        root.settle();
        compare(root.view.sideReveal.value, 1);
        compare(root.view.layout.outline.x, 0);
    }

    function test_anUnknownAccentIsMint() {
        root.open("top");
        for (const [accent, color] of [["Blue", Theme.blue], ["Orange", Theme.orange], ["Purple", Theme.purple], ["mauve", Theme.mint]]) {
            root.fixture.prefer("shelfAccent", accent);
            verify(Qt.colorEqual(root.view.accentColor, color), accent);
        }
    }

    function test_backgroundIsTheThemesTimesItsOpacity_data() {
        return [
            { tag: "Midnight", color: "#060708" },
            { tag: "Graphite", color: "#242424" },
            { tag: "Ocean", color: "#051424" },
            { tag: "a theme that does not exist", color: "#060708" }
        ];
    }

    function test_backgroundIsTheThemesTimesItsOpacity(data) {
        root.fixture.prefer("shelfTheme", data.tag);
        root.open("top");
        const image = grabImage(root.view);
        // In the middle of the pill's foot; and its lower corners are round, the upper ones not.
        verify(Qt.colorEqual(image.pixel(26 + 145, 30), data.color));
        verify(Qt.colorEqual(image.pixel(26, 0), data.color));
        verify(!Qt.colorEqual(image.pixel(26, 33), data.color));
        root.fixture.prefer("shelfOpacity", 0.65);
        verify(!Qt.colorEqual(grabImage(root.view).pixel(26 + 145, 30), data.color));
    }

    name: "ShelfLayout"
}
