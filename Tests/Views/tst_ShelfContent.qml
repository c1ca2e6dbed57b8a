import QtQuick

ShelfTestCase {
    id: root

    function test_opensAtItsEdge_data() {
        return [
            { tag: "top", edge: "top", scale: 1, outline: Qt.rect(26, 0, 660, 429) },
            { tag: "right, smaller", edge: "right", scale: 0.85, outline: Qt.rect(26, 65, 590, 365) }
        ];
    }

    function test_opensAtItsEdge(data) {
        root.fixture.prefer("shelfScale", data.scale);
        root.open(data.edge);
        compare(root.view.shapeRect, root.view.layout.outline);
        root.expand();
        compare(root.view.layout.outline, data.outline);
        compare(root.view.shapeRect, data.outline);
    }

    function test_openShelfFitsItsPanel() {
        root.open("right");
        root.view.compactRect = Qt.rect(26 + 660, 26, 34, 120);
        root.expand();
        compare(root.view.layout.outline.y, 26);
        root.view.compactRect = Qt.rect(26 + 660, 26 + 519 - 120, 34, 120);
        compare(root.view.layout.outline.y, 26 + 519 - 429);
        root.fit(600, 400); // as on a small display
        verify(root.view.layout.outline.width <= 602 && root.view.layout.outline.height <= 402);
    }

    function test_collapsedShelfIsOneButton() {
        root.open("top");
        compare(root.everything(), ["Button: Perchly · Ready"]);
        root.fixture.setMedia("A title that is a good deal longer than the pill is wide", false, false);
        compare(root.everything(), ["Button: A title that is a good deal longer than the pill is wide · Playing"]);
        root.press(root.view.status.sentence);
        compare(root.fixture.takeCalls(), ["toggleKeyboardOpen"]);
    }

    function test_openShelfHasAllButtonsInOrder() {
        root.fixture.prefer("leftWidget", "Calendar");
        root.open("left");
        root.fixture.productivity.held.hold(["file:///tmp/a", "https://example.org"]);
        root.expand();
        compare(root.everything().join("\n"), [
            "Grouping: Calendar", "Button: Change pinned widget",
            "StaticText: " + new Date().toLocaleDateString(Qt.locale(), Locale.LongFormat),
            "StaticText: Upcoming meetings", "Button: Meetings",
            "Grouping: Activity", "StaticText: Ready when you are", "StaticText: Your current activity lives here",
            "Grouping: Focus timer", "Button: Change pinned widget", "StaticText: 25:00", "Button: Start focus",
            "StaticText: YOUR SHELF", "Button: Settings",
            "Grouping: Your shelf", "Button: Previous icons (disabled)", "Button: Pin Clock",
            "Button: Pin Focus timer", "Button: Pin Music", "Button: Pin Quick note",
            "Button: Pin Calendar", "Button: More icons (disabled)",
            "Button: Search", "Button: Capture",
            "Button: Mixer", "Button: Workspace", "Button: Focus",
            "Button: 2 held", "StaticText: No internal battery", "Button: Quit",
            "Button: Drag this edge to detach and reposition the shelf",
            "Button: File shelf · 2 held"
        ].join("\n"));
    }

    function test_focusButtonStartsAQuietSession() {
        root.open("top");
        root.expand();
        root.press("Focus");
        verify(root.fixture.model.quietFocus);
        verify(!root.has("Grouping: Your shelf"));
        verify(root.has("StaticText: Room to focus"));
        root.fixture.advance(63);
        compare(root.view.status.sentence, "Focus · 23:57");
        root.press("End focus");
        verify(!root.fixture.model.quietFocus);
        compare(root.fixture.model.seconds, 0);
    }

    function test_dragContinuesWhenTheShelfCloses() {
        root.open("right");
        root.expand();
        mousePress(root.view, 26 + 680, 300);
        mouseMove(root.view, 26 + 690, 300);
        root.fixture.setExpanded(false);
        root.fit(root.fixture.model.compactWidth, root.fixture.model.compactHeight);
        root.settle();
        root.fixture.dock("top");
        mouseMove(root.view, 26 + 890, 350);
        mouseRelease(root.view, 26 + 890, 350);
        compare(root.fixture.takeCalls(), ["pressed", "moved", "moved", "released"]);
    }

    function test_tooltipFollowsTextChanges() {
        root.open("top");
        mouseMove(root.view, 100, 15);
        wait(300);
        compare(root.fixture.toolTips(), []);
        tryVerify(() => root.fixture.toolTips()[0] === "Perchly · Ready", 2000);
        root.fixture.setMedia("words ".repeat(80), false, false);
        verify(/^words words/.test(root.fixture.toolTips()[0]));
        mousePress(root.view, 100, 15);
        compare(root.fixture.toolTips(), []);
        mouseRelease(root.view, 100, 15);
        mouseMove(root.view, 1, 15);
        mouseMove(root.view, 100, 15);
        tryVerify(() => root.fixture.toolTips().length > 0, 2000);
        root.fixture.model.setChoosingWidget(true); // a menu opens
        compare(root.fixture.toolTips(), []);
        root.fixture.model.setChoosingWidget(false);
    }

    name: "ShelfContent"
}
