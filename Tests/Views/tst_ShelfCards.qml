import QtQuick

ShelfTestCase {
    id: root

    /// Everything that is on the cards now, from the activity card on.
    function activity(): list<string> {
        const all = root.everything();
        return all.slice(all.indexOf("Grouping: Activity") + 1, all.lastIndexOf("Button: Change pinned widget") - 1);
    }

    function test_aCardsMenuPinsAnotherWidget() {
        root.open("top");
        root.expand();
        root.press("Change pinned widget"); // the last of that name: the right card's
        verify(root.fixture.choosingWidget());
        const all = root.everything();
        const menu = all.indexOf("PopupMenu: Change pinned widget");
        compare(all.slice(menu + 1, menu + 6), ["Button: Clock", "Button: Focus timer", "Button: Music", "Button: Quick note", "Button: Calendar"]);
        root.press("Music");
        verify(!root.fixture.choosingWidget());
        compare(root.fixture.stored("rightWidget"), "Music");
        compare(root.fixture.stored("leftWidget"), undefined);
        verify(root.has("Button: Open Music"));
        compare(root.fixture.takeCalls(), ["takeKeyboard", "returnKeyboard"]);
        root.press("Pin Focus timer");
        root.press("Pin on left");
        compare(root.fixture.model.left, "Focus timer");
    }

    function test_aChooserIsUsedWithTheKeyboard() {
        root.open("top");
        root.expand();
        root.view.forceActiveFocus();
        [Qt.Key_Tab, Qt.Key_Return, Qt.Key_Up, Qt.Key_Up, Qt.Key_Return].forEach(key => keyClick(key));
        compare(root.fixture.model.left, "Quick note");
        keyClick(Qt.Key_Return); // the menu's button has the keyboard again
        verify(root.view.choosing);
    }

    function test_aChooserEnds_data() {
        return [
            { tag: "at Escape", end: () => keyClick(Qt.Key_Escape) },
            { tag: "at a press elsewhere, which does nothing more", end: () => mouseClick(root.view, 26 + 20 + 20, 365) },
            { tag: "at a press on the header, which does nothing more", end: () => mouseClick(root.view, 300, 15) },
            { tag: "when the shelf closes", end: () => root.fixture.setExpanded(false) },
            { tag: "with what it belongs to", end: () => root.fixture.fill(["Clock"], []) }
        ];
    }

    function test_aChooserEnds(data) {
        root.open("top");
        root.expand();
        root.press("Pin Focus timer");
        verify(root.view.choosing);
        data.end();
        tryVerify(() => !root.view.choosing);
        verify(!root.fixture.choosingWidget());
        compare(root.fixture.takeCalls(), ["takeKeyboard", "returnKeyboard"]);
        compare(root.fixture.model.right, "Focus timer");
    }

    function test_theActivityCardShowsTheMostImportant() {
        root.open("top");
        root.expand();
        compare(root.activity(), ["StaticText: Ready when you are", "StaticText: Your current activity lives here"]);
        root.fixture.setMedia({ active: true, playing: true, title: "Clair de lune", artist: "Debussy", source: "Firefox" });
        compare(root.activity(), ["StaticText: Clair de lune", "StaticText: Debussy · Firefox · Playing",
                                  "Button: Previous track", "Button: Pause", "Button: Next track"]);
        root.press("Start focus");
        root.fixture.advance(1);
        compare(root.activity(), ["StaticText: 24:59", "Button: Pause", "Button: End session"]);
        root.press("Pause");
        compare(root.activity(), ["StaticText: 24:59", "Button: Resume", "Button: End session"]);
        root.press("End session");
        compare(root.fixture.model.seconds, 0);
        compare(root.fixture.model.activity, "Ready when you are");
    }

    function test_aNoteIsKeptWithEachKey() {
        root.fixture.prefer("leftWidget", "Quick note");
        root.fixture.prefer("quickNote", "milk");
        root.open("top");
        root.expand();
        mouseClick(root.view, 26 + 20 + 150, 34 + 12 + 60);
        compare(root.fixture.takeCalls(), ["takeKeyboard"]);
        keyClick(Qt.Key_End, Qt.ControlModifier);
        keyClick("a");
        compare(root.fixture.stored("quickNote"), "milka");
        // Shown, but not stored with the one kind of blank and line end that the editor knows.
        root.fixture.prefer("quickNote", "te\u00a0a\r\n");
        keyClick(Qt.Key_Tab);
        keyClick("b");
        compare(root.fixture.stored("quickNote"), "te\u00a0a\r\n");
    }

    function test_playbackControlsSeekWhereTheyCannotSkip() {
        root.fixture.prefer("rightWidget", "Music");
        root.open("top");
        root.expand();
        const pressAll = names => names.forEach(name => root.press(name));
        root.fixture.setMedia({ playing: true });
        pressAll(["Previous track", "Pause", "Next track"]);
        compare(root.fixture.takeCommands(), ["previous track", "playpause", "next track"]);
        root.fixture.setMedia({ browser: true, canSeek: false });
        pressAll(["Rewind 15 seconds", "Pause", "Forward 15 seconds"]);
        compare(root.fixture.takeCommands(), ["playpause"]);
        root.fixture.setMedia({ canSeek: true });
        pressAll(["Rewind 15 seconds", "Forward 15 seconds", "Open Music"]);
        compare(root.fixture.takeCommands(), ["rewind", "forward", "open music"]);
    }

    name: "ShelfCards"
}
