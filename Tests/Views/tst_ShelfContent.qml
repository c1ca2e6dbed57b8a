import QtQuick

ShelfTestCase {
    id: root

    function button(name: string): string {
        return "Button: " + name;
    }

    function test_collapsedItIsOneButtonThatSaysWhatGoesOn_data() {
        return [{ tag: "top" }, { tag: "left" }];
    }

    function test_collapsedItIsOneButtonThatSaysWhatGoesOn(data) {
        root.open(data.tag);
        compare(root.everything(), [root.button("Perchly · Ready")]);
        root.fixture.setMedia({ active: true, playing: true, title: "A title that is a good deal longer than the pill is wide" });
        compare(root.view.status.symbol, "waveform");
        compare(root.everything(),
                [root.button("A title that is a good deal longer than the pill is wide · Playing")]);
        root.press(root.view.status.sentence);
        compare(root.fixture.takeCalls(), ["toggleKeyboardOpen"]);
    }

    function test_openItTellsEveryButton() {
        root.fixture.prefer("leftWidget", "Calendar");
        root.open("left");
        root.fixture.productivity.held.hold(["file:///tmp/a", "https://example.org"]);
        root.expand();
        compare(root.everything().join("\n"), [
            "Grouping: Calendar", root.button("Change pinned widget"),
            "StaticText: " + new Date().getDate() + " " + Qt.locale().standaloneMonthName(new Date().getMonth()) + " " + new Date().getFullYear(),
            "StaticText: Upcoming meetings", root.button("Meetings"),
            "Grouping: Activity", "StaticText: Ready when you are", "StaticText: Your current activity lives here",
            "Grouping: Focus timer", root.button("Change pinned widget"), "StaticText: 25:00", root.button("Start focus"),
            "StaticText: YOUR SHELF", root.button("Settings"),
            "Grouping: Your shelf", root.button("Previous icons"), root.button("Pin Clock"),
            root.button("Pin Focus timer"), root.button("Pin Music"), root.button("Pin Quick note"),
            root.button("Pin Calendar"), root.button("More icons"),
            root.button("Search"), root.button("Capture"),
            root.button("Mixer"), root.button("Workspace"), root.button("Focus"),
            "StaticText: 2 held", "StaticText: No internal battery", root.button("Quit"),
            root.button("Drag this edge to detach and reposition the shelf"),
            root.button("File shelf · 2 held")
        ].join("\n"));
    }

    function test_focusStartsAQuietSessionAndEndsIt() {
        root.open("top");
        root.expand();
        root.press("Focus");
        verify(root.fixture.model.quietFocus);
        compare(root.fixture.model.seconds, 1500);
        verify(!root.has("Grouping: Your shelf"));
        verify(root.has("StaticText: Room to focus"));
        root.fixture.advance(63);
        compare(root.view.status.status, "23:57");
        root.press("End focus");
        verify(!root.fixture.model.quietFocus);
        compare(root.fixture.model.seconds, 0);
    }

    function test_aMediaErrorStandsUntilItIsDismissed() {
        root.open("top");
        root.fixture.model.controlError = "The player did not answer.";
        verify(!root.has("AlertMessage: Media controls unavailable"));
        root.expand();
        verify(root.has("AlertMessage: Media controls unavailable"));
        // It covers the buttons below it.
        mouseClick(root.view, 26 + 20 + 20, 365);
        compare(root.fixture.takeCalls(), []);
        root.press("OK");
        compare(root.fixture.model.controlError, "");
        verify(!root.has("Button: OK"));
        mouseClick(root.view, 26 + 20 + 20, 365);
        compare(root.fixture.takeCalls(), ["showTools"]);
    }

    function test_aDragOutlivesTheOpenShelf() {
        root.open("right");
        root.expand();
        mousePress(root.view, 26 + 680, 300);
        mouseMove(root.view, 26 + 690, 300);
        compare(root.fixture.takeCalls(), ["pressed", "moved"]);
        root.fixture.setExpanded(false);
        root.fit(root.fixture.model.compactWidth, root.fixture.model.compactHeight);
        root.settle();
        root.fixture.dock("top");
        mouseMove(root.view, 26 + 890, 350);
        compare(root.fixture.takeCalls(), ["moved"]);
        mouseRelease(root.view, 26 + 890, 350);
        compare(root.fixture.takeCalls(), ["released"]);
    }

    function test_tooltipComesAfterARestAndFollowsItsText() {
        root.open("top");
        mouseMove(root.view, 100, 15);
        wait(300);
        compare(root.fixture.toolTips(), []);
        tryVerify(() => root.fixture.toolTips().length > 0, 2000);
        compare(root.fixture.toolTips(), ["Perchly · Ready"]);
        root.fixture.setMedia({ active: true, playing: true, title: "words ".repeat(80) + "unbreakable".repeat(60) });
        verify(root.fixture.toolTips()[0].startsWith("words words"), root.fixture.toolTips()[0]);
        mousePress(root.view, 100, 15);
        compare(root.fixture.toolTips(), []);
        mouseRelease(root.view, 100, 15);
    }

    name: "ShelfContent"
}
