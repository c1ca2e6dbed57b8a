import QtQuick

ShelfTestCase {
    id: root

    /// Everything that is on the cards now, from the activity card on.
    function activity(): list<string> {
        const all = root.everything();
        return all.slice(all.indexOf("Grouping: Activity") + 1, all.lastIndexOf("Button: Change pinned widget") - 1);
    }

    function test_theMenuOfACardPinsAnotherWidget() {
        root.open("top");
        root.expand();
        root.press("Change pinned widget"); // the last of that name: the right card's
        verify(root.fixture.choosingWidget());
        const all = root.everything();
        const menu = all.indexOf("PopupMenu: Change pinned widget");
        compare(all.slice(menu + 1, menu + 6), ["Button: Clock", "Button: Focus timer", "Button: Music", "Button: Quick note", "Button: Calendar"]);
        root.press("Music");
        verify(!root.fixture.choosingWidget());
        compare(root.fixture.model.right, "Music");
        compare(root.fixture.stored("rightWidget"), "Music");
        compare(root.fixture.model.left, "Clock");
        compare(root.fixture.stored("leftWidget"), undefined);
        verify(root.has("Button: Open Music"));
        compare(root.fixture.takeCalls(), ["takeKeyboard", "returnKeyboard"]);
    }

    function test_aTilePinsItsWidgetOnEitherSideOrBoth() {
        root.open("top");
        root.expand();
        root.press("Pin Focus timer");
        root.press("Pin on left");
        compare([root.fixture.model.left, root.fixture.model.right], ["Focus timer", "Focus timer"]);
        compare(root.fixture.stored("leftWidget"), "Focus timer");
    }

    function test_aChooserEnds_data() {
        return [
            { tag: "at Escape", end: () => keyClick(Qt.Key_Escape) },
            { tag: "at a press elsewhere, which does nothing more", end: () => mouseClick(root.view, 26 + 20 + 20, 365) },
            { tag: "at a press on the header, which does nothing more", end: () => mouseClick(root.view, 300, 15) },
            { tag: "when the shelf closes", end: () => root.fixture.setExpanded(false) }
        ];
    }

    function test_aChooserEnds(data) {
        root.open("top");
        root.expand();
        root.press("Change pinned widget");
        verify(root.view.choosing);
        data.end();
        verify(!root.view.choosing);
        verify(!root.fixture.choosingWidget());
        compare(root.fixture.takeCalls(), ["takeKeyboard", "returnKeyboard"]);
        compare(root.fixture.model.right, "Focus timer");
    }

    function test_aChooserEndsWithWhatItBelongsTo() {
        root.open("top");
        root.expand();
        root.press("Pin Focus timer");
        verify(root.fixture.choosingWidget());
        root.fixture.fill(["Clock"], []);
        tryVerify(() => !root.fixture.choosingWidget());
        verify(!root.view.choosing);
        verify(!root.has("PopupMenu: Pin Focus timer"));
        compare(root.fixture.takeCalls(), ["takeKeyboard", "returnKeyboard"]);
    }

    function test_aChooserIsUsedWithTheKeyboard() {
        root.open("top");
        root.expand();
        root.view.forceActiveFocus();
        keyClick(Qt.Key_Tab);
        keyClick(Qt.Key_Return);
        keyClick(Qt.Key_Up);
        keyClick(Qt.Key_Up);
        keyClick(Qt.Key_Return);
        compare(root.fixture.model.left, "Quick note");
        // The menu's button has the keyboard again.
        keyClick(Qt.Key_Return);
        verify(root.view.choosing);
    }

    function test_theActivityCardShowsTheMostImportant() {
        root.fixture.prefer("leftWidget", "Quick note");
        root.fixture.prefer("rightWidget", "Quick note");
        root.open("top");
        root.expand();
        compare(root.activity(), ["StaticText: Ready when you are", "StaticText: Your current activity lives here"]);
        root.fixture.setMedia({ active: true, playing: true, title: "Clair de lune", artist: "", source: "Firefox" });
        compare(root.activity(), ["StaticText: Clair de lune", "StaticText: Firefox · Playing",
                                  "Button: Previous track", "Button: Pause", "Button: Next track"]);
        root.fixture.setMedia({ playing: false, artist: "Debussy" });
        compare(root.activity().slice(1, 4), ["StaticText: Debussy · Firefox · Paused", "Button: Previous track", "Button: Play"]);
        root.fixture.model.focus();
        root.fixture.advance(1);
        compare(root.activity(), ["StaticText: 24:59", "Button: Pause", "Button: End session"]);
        root.press("Pause");
        compare(root.activity(), ["StaticText: 24:59", "Button: Resume", "Button: End session"]);
        root.press("Resume");
        verify(root.fixture.model.running);
        root.fixture.model.activity = "Something else";
        root.press("End session");
        compare(root.fixture.model.seconds, 0);
        compare(root.fixture.model.activity, "Ready when you are");
    }

    function test_playbackControls_data() {
        const plain = ["Previous track", "Pause", "Next track"];
        const seeking = ["Rewind 15 seconds", "Pause", "Forward 15 seconds"];
        return [
            { tag: "a player skips, even one that cannot seek", media: { canSeek: false }, names: plain, commands: ["previous track", "playpause", "next track"] },
            { tag: "a browser that can seek seeks", media: { browser: true, canSeek: true }, names: seeking, commands: ["rewind", "playpause", "forward"] },
            { tag: "a browser that cannot only plays", media: { browser: true, canSeek: false }, names: seeking, commands: ["playpause"] },
            { tag: "nothing while a command is under way", media: { controlling: true }, names: plain, commands: [] }
        ];
    }

    function test_playbackControls(data) {
        root.fixture.prefer("rightWidget", "Music");
        root.open("top");
        root.expand();
        root.fixture.setMedia(Object.assign({ playing: true }, data.media));
        for (const name of data.names) {
            root.press(name);
        }
        compare(root.fixture.takeCommands(), data.commands);
        root.press("Open Music");
        compare(root.fixture.takeCommands(), ["open music"]);
    }

    function test_theTimerCardStartsAndStopsASession() {
        root.fixture.prefer("focusMinutes", 50);
        root.open("top");
        root.expand();
        verify(root.has("StaticText: 50:00"));
        root.press("Start focus");
        root.fixture.advance(1);
        verify(root.has("StaticText: 49:59"));
        root.press("Stop focus");
        compare(root.fixture.model.seconds, 0);
        root.fixture.prefer("focusMinutes", 12.5);
        verify(root.has("StaticText: 25:00"));
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
        // A program's other part may change it, in signs of which the editor knows one kind, and
        // Tab leaves it.
        root.fixture.prefer("quickNote", "te\u00a0a\r\n");
        keyClick(Qt.Key_Tab);
        keyClick("b");
        compare(root.fixture.stored("quickNote"), "te\u00a0a\r\n");
        root.fixture.prefer("quickNote", "");
        mouseClick(root.view, 26 + 20 + 60, 34 + 12 + 50);
        root.fixture.setExpanded(false);
        keyClick("c");
        compare(root.fixture.stored("quickNote"), "");
    }

    function test_aLongNoteStaysInItsCard() {
        root.fixture.prefer("leftWidget", "Quick note");
        root.open("top");
        root.expand();
        mouseClick(root.view, 26 + 20 + 60, 34 + 12 + 50);
        const before = grabImage(root.view);
        for (let line = 0; line < 12; ++line) {
            keyClick(Qt.Key_Return);
            keyClick("x");
        }
        const after = grabImage(root.view);
        for (let x = 30; x < 690; x += 7) {
            verify(Qt.colorEqual(before.pixel(x, 34 + 12 + 149), after.pixel(x, 34 + 12 + 149)));
        }
    }

    name: "ShelfCards"
}
