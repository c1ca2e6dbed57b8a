import QtQuick

ShelfTestCase {
    id: root

    /// The accessible objects on the activity card.
    function activity(): list<string> {
        const all = root.everything();
        return all.slice(all.indexOf("Grouping: Activity") + 1, all.lastIndexOf("Button: Change pinned widget") - 1);
    }

    function pressAll(names: var) {
        names.forEach(name => root.press(name));
    }

    function test_chooserPinsAnotherWidget() {
        root.open("top");
        root.expand();
        root.press("Change pinned widget"); // the last with that name: the right card's
        const all = root.everything();
        const menu = all.indexOf("PopupMenu: Change pinned widget");
        compare(all.slice(menu + 1, menu + 6), ["Button: Clock", "Button: Focus timer", "Button: Music", "Button: Quick note", "Button: Calendar"]);
        root.press("Music");
        compare(root.fixture.stored("rightWidget"), "Music");
        compare(root.fixture.stored("leftWidget"), undefined);
        compare(root.fixture.takeCalls(), ["takeKeyboard", "returnKeyboard"]);
        root.pressAll(["Pin Focus timer", "Pin on left"]);
        compare(root.fixture.model.left, "Focus timer");
        root.view.forceActiveFocus();
        root.go([Qt.Key_Tab, Qt.Key_Return, Qt.Key_Down, Qt.Key_Down, Qt.Key_Return]);
        compare(root.fixture.model.left, "Quick note");
        keyClick(Qt.Key_Return); // the menu's button has the keyboard again
        verify(root.view.choosing);
    }

    function test_chooserCloses_data() {
        return [
            { tag: "at a press elsewhere, which does nothing more", end: () => mouseClick(root.view, 26 + 20 + 20, 365) },
            { tag: "when the shelf closes", end: () => root.fixture.setExpanded(false) },
            { tag: "with its entry", end: () => root.fixture.fill(["Clock"], []) }
        ];
    }

    function test_chooserCloses(data) {
        root.open("top");
        root.expand();
        root.press("Pin Focus timer");
        verify(root.fixture.choosingWidget());
        data.end();
        tryVerify(() => !root.view.choosing);
        verify(!root.fixture.choosingWidget());
        compare(root.fixture.takeCalls(), ["takeKeyboard", "returnKeyboard"]);
    }

    function test_activityCardShowsTheMostImportantActivity() {
        root.open("top");
        root.expand();
        compare(root.activity(), ["StaticText: Ready when you are", "StaticText: Your current activity lives here"]);
        root.fixture.setMedia("Clair de lune", true, true);
        compare(root.activity(), ["StaticText: Clair de lune", "StaticText: Debussy · Firefox · Playing",
                                  "Button: Rewind 15 seconds", "Button: Pause", "Button: Forward 15 seconds"]);
        root.press("Start focus");
        root.fixture.advance(1);
        compare(root.activity(), ["StaticText: 24:59", "Button: Pause", "Button: End session"]);
        root.press("Pause");
        compare(root.activity(), ["StaticText: 24:59", "Button: Resume", "Button: End session"]);
        root.press("End session");
        compare(root.fixture.model.activity, "Ready when you are");
    }

    function test_noteIsStoredOnlyWhenTyped() {
        root.fixture.prefer("leftWidget", "Quick note");
        root.fixture.prefer("quickNote", "milk");
        root.open("top");
        root.expand();
        mouseClick(root.view, 26 + 20 + 150, 34 + 12 + 60);
        keyClick(Qt.Key_End, Qt.ControlModifier);
        keyClick("a");
        compare(root.fixture.stored("quickNote"), "milka");
        // The editor normalises blanks and line ends; showing a note must not change it.
        root.fixture.prefer("quickNote", "te\u00a0a\r\n");
        compare(root.fixture.stored("quickNote"), "te\u00a0a\r\n");
        const longest = "x".repeat(20000);
        root.fixture.prefer("quickNote", longest);
        keyClick("y");
        verify(root.fixture.stored("quickNote") === longest);
        const edit = root.Window.activeFocusItem;
        tryCompare(edit, "length", longest.length);
        for (const text of ["שלום\nHello (1)", "Hello (1)\nשלום"]) { // each paragraph has its own direction
            root.fixture.prefer("quickNote", text);
            const [hello, shalom] = ["H", "ש"].map(letter => edit.positionToRectangle(text.indexOf(letter)).x);
            verify(hello < 20 && shalom > edit.width - 20, text);
        }
    }

    function test_playbackButtonsSeekInBrowsers() {
        root.fixture.prefer("rightWidget", "Music");
        root.open("top");
        root.expand();
        root.fixture.setMedia("Clair de lune", false, false);
        root.pressAll(["Previous track", "Pause", "Next track"]);
        compare(root.fixture.takeCommands(), ["previous track", "playpause", "next track"]);
        root.fixture.setMedia("Clair de lune", true, false);
        root.pressAll(["Rewind 15 seconds", "Pause", "Forward 15 seconds"]);
        compare(root.fixture.takeCommands(), ["playpause"]);
        root.fixture.setMedia("Clair de lune", true, true);
        root.pressAll(["Rewind 15 seconds", "Forward 15 seconds", "Open Music"]);
        compare(root.fixture.takeCommands(), ["rewind", "forward", "open music"]);
    }

    name: "ShelfCards"
}
