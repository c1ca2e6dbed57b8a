import QtQuick

ShelfTestCase {
    id: root

    function test_openShelfLiesAgainstItsEdge_data() {
        return [
            { tag: "top", edge: "top", scale: 1, x: 26, y: 0, width: 660 },
            { tag: "left", edge: "left", scale: 1, x: 0, y: 72, width: 694 },
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

    function test_backgroundIsTheThemesTimesItsOpacity() {
        root.fixture.prefer("shelfTheme", "Ocean");
        root.open("top");
        const image = grabImage(root.view);
        verify(Qt.colorEqual(image.pixel(26 + 145, 30), "#051424"));
        verify(Qt.colorEqual(image.pixel(26, 0), "#051424"));
        verify(!Qt.colorEqual(image.pixel(26, 33), "#051424")); // the lower corners are round
        root.fixture.prefer("shelfOpacity", 0.65);
        verify(!Qt.colorEqual(grabImage(root.view).pixel(26 + 145, 30), "#051424"));
    }

    name: "ShelfLayout"
}
