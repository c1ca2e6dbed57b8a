import QtQuick
import Perchly.Look

ShelfTestCase {
    id: root

    function button(name: string): string {
        return "Button: " + name;
    }

    function test_collapsedItIsOneButtonThatSaysWhatGoesOn_data() {
        return [{ tag: "top" }, { tag: "left" }, { tag: "right" }];
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
        verify(!root.has(root.button("Settings")) && !root.has("Grouping: Your shelf"));
        verify(root.has("StaticText: Room to focus"));
        verify(root.has("StaticText: Your apps and widgets return when you leave focus mode."));
        verify(Qt.colorEqual(root.view.statusColor, Theme.orange));
        root.fixture.advance(63);
        compare(root.view.status.status, "23:57");
        root.press("End focus");
        verify(!root.fixture.model.quietFocus);
        compare(root.fixture.model.seconds, 0);
        verify(Qt.colorEqual(root.view.statusColor, root.view.accentColor));
    }

    function test_theKeyboardReachesAndPressesButtons() {
        root.open("top");
        root.expand();
        root.view.forceActiveFocus();
        const pressed = [];
        for (let step = 0; step < 16; ++step) {
            keyClick(Qt.Key_Tab);
            keyClick(step % 2 ? Qt.Key_Return : Qt.Key_Space);
            if (root.view.choosing) {
                keyClick(Qt.Key_Escape);
                verify(!root.view.choosing);
            }
            pressed.push(...root.fixture.takeCalls());
        }
        const chosen = ["takeKeyboard", "returnKeyboard"];
        // The menus of both cards, the session between them, and the tiles come before the toolbar.
        compare(pressed, [...chosen, ...chosen, "showSettings", ...chosen, ...chosen, ...chosen, ...chosen, ...chosen,
                          "showTools", "clearScreen", "showMixer", "showTools", "terminate", "toggleKeyboardOpen"]);
        verify(root.fixture.model.quietFocus);
    }

    function test_aDragOutlivesTheOpenShelf_data() {
        return [
            { tag: "by the header", edge: "top", x: 100, y: 15 },
            { tag: "by the header at a side", edge: "left", x: 300, y: 85 },
            { tag: "by the edge", edge: "right", x: 26 + 680, y: 300 }
        ];
    }

    function test_aDragOutlivesTheOpenShelf(data) {
        root.open(data.edge);
        root.expand();
        mousePress(root.view, data.x, data.y);
        mouseMove(root.view, data.x + 9, data.y);
        compare(root.fixture.takeCalls(), ["pressed", "moved"]);
        root.fixture.setExpanded(false);
        root.fit(root.fixture.model.compactWidth, root.fixture.model.compactHeight);
        root.settle();
        mouseMove(root.view, data.x + 200, data.y + 50);
        root.fixture.dock(data.edge === "top" ? "left" : "top");
        mouseMove(root.view, data.x + 210, data.y + 50);
        compare(root.fixture.takeCalls(), ["moved", "moved"]);
        mouseRelease(root.view, data.x + 210, data.y + 50);
        compare(root.fixture.takeCalls(), ["released"]);
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

    function test_tooltipsComeAfterARest() {
        root.open("top");
        mouseMove(root.view, 100, 15);
        wait(300);
        compare(root.fixture.toolTips(), []);
        tryVerify(() => root.fixture.toolTips().length > 0, 2000);
        compare(root.fixture.toolTips(), ["Perchly · Ready"]);
        mouseMove(root.view, 100, 400);
        tryVerify(() => root.fixture.toolTips().length === 0);
        root.expand();
        mouseMove(root.view, 100, 15);
        tryVerify(() => root.fixture.toolTips().length > 0, 2000);
        compare(root.fixture.toolTips(), ["Click to open · Drag to the top, left, or right edge"]);
        mousePress(root.view, 100, 15);
        compare(root.fixture.toolTips(), []);
        mouseRelease(root.view, 100, 15);
    }

    function test_aTooltipFollowsItsTextHoweverLong() {
        root.open("top");
        mouseMove(root.view, 100, 15);
        tryVerify(() => root.fixture.toolTips().length > 0, 2000);
        compare(root.fixture.toolTips(), ["Perchly · Ready"]);
        const title = "A title of many words ".repeat(20) + "unbreakable".repeat(60);
        root.fixture.setMedia({ active: true, playing: true, title: title });
        compare(root.fixture.toolTips().length, 1);
        verify(root.fixture.toolTips()[0].startsWith("A title of many words"), root.fixture.toolTips()[0]);
    }

    name: "ShelfContent"
}
