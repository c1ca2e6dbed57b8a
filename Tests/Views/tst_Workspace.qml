import QtQuick
import Perchly.Productivity

/// The workspace window's content.
ViewTestCase {
    id: root

    readonly property ProductivityView view: root.made as ProductivityView

    property Component viewComponent: Component { ProductivityView {} }

    function open(section: string) {
        root.make(root.viewComponent, {
            extras: root.fixture.extras,
            height: root.height,
            library: root.fixture.library,
            model: root.fixture.model,
            preferences: root.fixture.preferences,
            tools: root.fixture.productivity,
            width: root.width
        });
        root.show(section);
    }

    function show(section: string) {
        root.fixture.extras.section = section;
        root.settle();
    }

    function push(name: string) {
        root.press(name);
        root.settle();
    }

    function enter(text: string) {
        root.type(text);
        root.settle();
    }

    /// Waits for a frame, before which rows are created.
    function settle() {
        wait(40);
    }

    /// Shows the window again after it has closed itself.
    function reopen() {
        verify(!root.Window.window.visible);
        root.Window.window.show();
        tryVerify(() => root.Window.active);
        root.settle();
    }

    function focusedOn(label: string): bool {
        return root.Window.activeFocusItem?.["label"] === label;
    }

    function goTo(label: string, key: int) {
        for (let step = 0; step < 9 && !root.focusedOn(label); ++step) {
            keyClick(key);
        }
    }

    /// Verifies that these exist in this order, perhaps with others in between.
    function expectInOrder(names: var) {
        const all = root.everything();
        let at = -1;
        for (const name of names) {
            const next = all.indexOf(name, at + 1);
            verify(next > at, name + " is missing in " + JSON.stringify(all, null, 1));
            at = next;
        }
    }

    function test_sectionsHaveAllTextsInOrder() {
        root.open("Search");
        for (const [section, texts] of [
            ["Search", ["EditableText: Search apps, notes, clipboard, and files", "List: Search results"]],
            ["Files", ["Button: Add files…", "EditableText: https://…", "Button: Add link", "Button: Clear",
                       "StaticText: Drop here"]],
            ["Clipboard", ["CheckBox: Enable clipboard history for this session", "CheckBox: Pause",
                           "Button: Clear history", "EditableText: Search copied text"]],
            ["Layouts", ["EditableText: Layout name, e.g. Work", "Button: Save current (disabled)"]],
            ["Shortcuts", ["Heading: Run your shortcuts", "Button: Refresh", "Button: Open folder"]],
            ["Meetings", ["Button: Connect Calendar", "Button: Refresh",
                          "List: Meetings", "StaticText: Connect Calendar to see upcoming meetings."]],
            ["Launch", ["EditableText: Workspace name", "Button: Save current (disabled)"]],
            ["Snippets", ["EditableText: New snippet", "Button: Pin (disabled)", "CheckBox: Keep pinned snippets after quitting"]],
            ["Focus", ["SpinBox: Focus: 25 minutes", "SpinBox: Break: 5 minutes", "StaticText: 25:00",
                       "Button: Start focus", "Button: Start break", "Button: Resume (disabled)", "Button: End (disabled)",
                       "StaticText: Today: 0 focus sessions · 0 minutes"]],
            ["Battery", ["Button: Refresh battery", "Button: Capture screen region"]]
        ]) {
            root.show(section);
            root.expectInOrder(["Heading: Your workspace", "ComboBox: Tools"].concat(texts));
        }
    }

    function test_heldItemsAreCopiedAndRemovedByKeyboard() {
        root.open("Files");
        verify(root.focusedOn("Add files…"));
        root.fixture.productivity.held.hold(["file:///tmp/a%20b.txt", "https://a.example/"]);
        root.settle();
        root.expectInOrder(["StaticText: Drag all 2", "ListItem: a b.txt", "Button: Preview", "Button: Reveal",
            "Button: Copy path / link", "Button: Copy image (disabled)", "Button: Share", "Button: Remove",
            "ListItem: https://a.example/", "Button: Copy path / link", "Button: Copy image (disabled)", "Button: Share",
            "Button: Remove"]);
        root.goTo("Copy all", Qt.Key_Tab);
        keyClick(Qt.Key_Tab);
        keyClick("c", Qt.ControlModifier);
        verify(root.fixture.copied().startsWith("file:///tmp/a"));
        root.goTo("Remove", Qt.Key_Right);
        keyClick(Qt.Key_Return);
        root.settle();
        verify(root.focusedOn("Remove"));
        keyClick(Qt.Key_Return);
        root.settle();
        compare(root.fixture.productivity.held.count, 0);
        verify(root.focusedOn("Add files…"));
        root.show("Clipboard");
        verify(root.focusedOn("Enable clipboard history for this session"));
        root.expectInOrder(["AlertMessage: Copied. Paste into your app with Ctrl+V.", "Button: Dismiss"]);
        root.fixture.advance(3);
        verify(!root.has("Button: Dismiss"));
    }

    function test_draftsSurviveSectionChanges() {
        root.fixture.fill([], ["one"]);
        root.open("Files");
        root.view.drafts.link = "https://example.org";
        root.show("Layouts");
        root.view.drafts.layoutName = "Work";
        root.show("Files");
        root.push("Add link");
        root.show("Launch");
        root.view.drafts.groupName = " Day ";
        root.push("Save current");
        root.expectInOrder(["ListItem: Day", "StaticText: one, https://example.org", "Button: Launch", "Button: Delete"]);
        root.push("Launch");
        compare(root.fixture.takeOpened(), ["file:///apps/one", "https://example.org"]);
        root.show("Layouts");
        root.push("Save current");
        root.expectInOrder(["ListItem: Work", "Button: Apply", "Button: Delete"]);
        root.fixture.fill(["Clock"], []);
        root.push("Apply");
        compare(root.fixture.library.shown[0].name, "one");
        root.view.drafts.snippet = " ";
        root.show("Snippets");
        root.push("Pin");
        root.push("Keep pinned snippets after quitting");
        compare(root.fixture.stored("persistSnippets"), true);
        root.expectInOrder(["ListItem: Blank text, 1 character", "Button: Copy", "Button: Remove"]);
        root.push("Copy");
        compare(root.fixture.copied(), " ");
        const drafts = root.view.drafts;
        compare(drafts.link + drafts.layoutName + drafts.groupName + drafts.snippet, "");
    }

    function test_largeLaunchGroupAsksFirst() {
        root.fixture.productivity.held.hold(Array.from({length: 21}, (_, number) => "https://a.example/" + number));
        root.fixture.extras.groups.save("Day");
        root.open("Launch");
        for (const [answer, count] of [[Qt.Key_Escape, 0], [Qt.Key_Return, 21]]) {
            root.press("Launch");
            root.settle();
            root.expectInOrder(["ListItem: Day", "StaticText: Open 21 items?", "Button: Open", "Button: Cancel"]);
            verify(root.focusedOn("Open"));
            keyClick(answer);
            root.settle();
            compare(root.fixture.takeOpened().length, count);
            verify(root.focusedOn("Launch"));
        }
    }

    function test_searchWorksByKeyboardAlone() {
        root.fixture.prefer("quickNote", "Buy milk");
        root.open("Search");
        verify(root.fixture.install(["Mail", "Ma-il", "Mahjongg"]));
        root.enter("MA");
        verify(root.fixture.describedAs(root.view, "Mail"), "the field does not tell the match");
        root.expectInOrder(["Heading: Apps", "ListItem: Mail", "ListItem: Ma-il", "ListItem: Mahjongg"]);
        keyClick(Qt.Key_Return);
        compare(root.fixture.takeOpened(), ["file:///apps/Mail"]);
        root.reopen();
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Down);
        // New results leave the keyboard in its row; typing continues in the field.
        root.fixture.productivity.held.hold(["https://mail.example/"]);
        root.fixture.library.refresh();
        verify(root.fixture.install(["Mac", "Mail", "Ma-il"]));
        root.settle();
        keyClick(Qt.Key_Return);
        compare(root.fixture.takeOpened(), ["file:///apps/Ma-il"]);
        root.reopen();
        root.enter("https");
        keyClick(Qt.Key_Return);
        compare(root.fixture.takeOpened(), ["https://mail.example/"]);
        root.reopen();
        root.enter("zzz");
        root.expectInOrder(["StaticText: No results"]);
        verify(!root.has("Heading: Apps"));
        keyClick(Qt.Key_Escape); // clears the field; the shell closes the window
        root.enter("milk");
        keyClick(Qt.Key_Return);
        compare(root.Window.activeFocusItem["text"], "Buy milk");
        keyClick(Qt.Key_A, Qt.ControlModifier);
        root.enter("tea"); // no longer a match, but kept while being edited
        compare(root.fixture.stored("quickNote"), "tea");
        root.expectInOrder(["EditableText: Quick note"]);
        keyClick(Qt.Key_Tab);
        root.settle();
        verify(!root.has("EditableText: Quick note"));
    }

    function test_focusTimerIsSetAndRun() {
        root.fixture.prefer("focusMinutes", 179);
        root.open("Focus");
        root.goTo("Focus: 179 minutes", Qt.Key_Tab);
        for (const [key, minutes] of [[Qt.Key_Up, 180], [Qt.Key_Right, 180], [Qt.Key_PageDown, 170], [Qt.Key_Home, 1]]) {
            keyClick(key);
            compare(root.fixture.stored("focusMinutes"), minutes);
        }
        root.press("Less"); // the last one: the break's
        compare(root.fixture.stored("breakMinutes"), 4);
        root.push("Start focus");
        verify(root.fixture.model.quietFocus);
        root.fixture.advance(2);
        root.push("Pause");
        root.expectInOrder(["StaticText: 00:58", "Button: Resume"]);
    }

    height: 570
    name: "Workspace"
    width: 660
}
