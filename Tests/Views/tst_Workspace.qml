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

    /// Rows are made before the next picture.
    function settle() {
        wait(40);
    }

    function show(section: string) {
        root.fixture.extras.section = section;
        root.settle();
    }

    function push(name: string) {
        root.press(name);
        root.settle();
    }

    /// That these are there in this order, perhaps with others between them.
    function expectInOrder(names: var) {
        const all = root.everything();
        let at = -1;
        for (const name of names) {
            const next = all.indexOf(name, at + 1);
            verify(next > at, name + " is missing in " + JSON.stringify(all, null, 1));
            at = next;
        }
    }

    function test_aSection_data() {
        return [
            { tag: "Search", texts: [
                "EditableText: Search apps, notes, clipboard, and files", "Heading: Apps",
                "Heading: Clipboard", "Heading: Pinned snippets", "Heading: Held files and links"] },
            { tag: "Files", texts: [
                "Button: Add files…", "EditableText: https://…", "Button: Add link", "Button: Clear",
                "StaticText: Drop here"] },
            { tag: "Clipboard", texts: [
                "CheckBox: Enable clipboard history for this session", "CheckBox: Pause",
                "Button: Clear history", "EditableText: Search copied text"] },
            { tag: "Layouts", texts: ["EditableText: Layout name, e.g. Work", "Button: Save current"] },
            { tag: "Shortcuts", texts: [
                "Heading: Run your Apple Shortcuts", "Button: Refresh", "Button: Open folder"] },
            { tag: "Meetings", texts: [
                "Button: Connect Calendar", "Button: Refresh",
                "StaticText: Connect Calendar to see upcoming meetings.", "List: Meetings"] },
            { tag: "Launch", texts: ["EditableText: Workspace name", "Button: Save current"] },
            { tag: "Snippets", texts: [
                "EditableText: New snippet", "Button: Pin", "CheckBox: Keep pinned snippets after quitting"] },
            { tag: "Focus", texts: [
                "SpinBox: Focus: 25 minutes", "SpinBox: Break: 5 minutes", "StaticText: 00:00",
                "Button: Start focus", "Button: Start break", "Button: Resume", "Button: End",
                "StaticText: Today: 0 focus sessions · 0 minutes"] },
            { tag: "anything else", texts: ["Button: Refresh battery", "Button: Capture screen region"] }
        ];
    }

    function test_aSection(row: var) {
        root.open(row.tag);
        root.expectInOrder(["Heading: Your workspace", "ComboBox: Tools"].concat(row.texts));
    }

    function test_heldItemsComeGoAndAreCopied() {
        root.open("Files");
        verify(root.fixture.drop(root.view, 300, 350, ["file:///tmp/a%20b.txt", "ftp://a.example/", "https://a.example/"]));
        root.settle();
        root.expectInOrder(["StaticText: Drag all 2", "ListItem: a b.txt", "Button: Preview", "Button: Reveal",
            "Button: Copy path / link", "Button: Copy image", "Button: Share", "Button: Remove",
            "ListItem: https://a.example/", "Button: Copy path / link", "Button: Copy image", "Button: Share",
            "Button: Remove"]);
        verify(!root.has("StaticText: Drop here"));
        root.push("Copy path / link"); // the last of that name
        compare(root.fixture.copied(), "https://a.example/");
        root.show("Clipboard");
        root.expectInOrder(["AlertMessage: Copied. Paste into your app with ⌘V.", "Button: Dismiss"]);
        root.push("Dismiss");
        verify(!root.has("Button: Dismiss"));
    }

    function test_whatWasTypedStays() {
        root.open("Files");
        root.view.drafts.link = "https://example.org";
        root.show("Layouts");
        root.view.drafts.layoutName = "Work";
        root.show("Files");
        root.push("Add link");
        compare(root.fixture.productivity.held.count, 1);
        compare(root.view.drafts.link, "");
        root.show("Layouts");
        root.push("Save current");
        compare(root.view.drafts.layoutName, "");
        root.expectInOrder(["ListItem: Work", "Button: Apply", "Button: Delete"]);
        root.fixture.fill([], []);
        root.push("Apply");
        compare(root.fixture.library.count, 5);
    }

    /// Deleting one row after the other needs no more than the same key.
    function test_theKeyboardStaysInTheList() {
        root.fixture.productivity.held.hold(["https://a.example/", "https://b.example/"]);
        root.open("Files");
        root.goTo("Copy all", Qt.Key_Tab);
        keyClick(Qt.Key_Tab);
        keyClick("c", Qt.ControlModifier);
        compare(root.fixture.copied(), "https://a.example/");
        root.goTo("Remove", Qt.Key_Right);
        keyClick(Qt.Key_Return);
        root.settle();
        verify(root.focusedOn("Remove"));
        keyClick(Qt.Key_Return);
        root.settle();
        compare(root.fixture.productivity.held.count, 0);
        verify(root.focusedOn("Add files…"));
    }

    function test_searchByKeyboardAlone() {
        root.fixture.prefer("quickNote", "Buy milk");
        root.open("Files");
        root.show("Search");
        verify(root.fixture.install(["Mail", "Ma-il", "Mahjongg"]));
        root.enter("MA");
        root.expectInOrder(["Heading: Clipboard", "ListItem: Mail", "ListItem: Ma-il", "ListItem: Mahjongg"]);
        keyClick(Qt.Key_Return);
        compare(root.fixture.takeOpened(), ["file:///apps/Mail"]);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Down);
        // What comes meanwhile leaves the keyboard where it is; typing goes on in the field.
        root.fixture.productivity.held.hold(["https://mail.example/"]);
        root.fixture.library.refresh();
        verify(root.fixture.install(["Mac", "Mail", "Ma-il"]));
        root.settle();
        keyClick(Qt.Key_Return);
        compare(root.fixture.takeOpened(), ["file:///apps/Ma-il"]);
        root.enter("c");
        keyClick(Qt.Key_Return);
        compare(root.fixture.takeOpened(), ["file:///apps/Mac"]);
        keyClick(Qt.Key_Escape);
        root.enter("milk");
        for (let step = 0; step < 9 && root.Window.activeFocusItem?.["text"] !== "Buy milk"; ++step) {
            keyClick(Qt.Key_Tab);
        }
        keyClick(Qt.Key_A, Qt.ControlModifier);
        root.enter("tea"); // no longer what was searched for, but it stays while it is written in
        compare(root.fixture.stored("quickNote"), "tea");
        root.expectInOrder(["EditableText: Quick note"]);
        keyClick(Qt.Key_Tab);
        root.settle();
        verify(!root.has("EditableText: Quick note"));
    }

    function test_groupsAndSnippetsAreMadeUsedAndRemoved() {
        root.fixture.fill([], ["one"]);
        root.fixture.productivity.held.hold(["https://example.org/x"]);
        root.open("Launch");
        root.view.drafts.groupName = " Day ";
        root.push("Save current");
        root.expectInOrder(["ListItem: Day", "StaticText: one, https://example.org/x", "Button: Launch", "Button: Delete"]);
        root.push("Launch");
        compare(root.fixture.takeOpened(), ["file:///apps/one", "https://example.org/x"]);
        root.push("Delete");
        compare(root.fixture.extras.groups.count, 0);
        root.view.drafts.snippet = " ";
        root.show("Snippets");
        root.push("Pin");
        root.push("Keep pinned snippets after quitting");
        compare(root.fixture.stored("persistSnippets"), true);
        root.expectInOrder(["ListItem: Blank text, 1 character", "Button: Copy", "Button: Remove"]);
        root.push("Copy");
        compare(root.fixture.copied(), " ");
        root.push("Remove");
        compare(root.fixture.extras.snippets.count, 0);
    }

    function test_theFocusTimerIsSetAndRun() {
        root.fixture.prefer("focusMinutes", 179);
        root.open("Focus");
        for (let step = 0; step < 9 && !root.focusedOn("Focus: 179 minutes"); ++step) {
            keyClick(Qt.Key_Tab);
        }
        for (const [key, minutes] of [[Qt.Key_Up, 180], [Qt.Key_Right, 180], [Qt.Key_PageDown, 170], [Qt.Key_Home, 1]]) {
            keyClick(key);
            compare(root.fixture.stored("focusMinutes"), minutes);
        }
        root.press("Less"); // the last one
        compare(root.fixture.stored("breakMinutes"), 4);
        root.push("Start focus");
        verify(root.fixture.model.quietFocus);
        root.fixture.advance(2);
        root.push("Pause");
        root.expectInOrder(["StaticText: 00:58", "Button: Resume"]);
        root.push("End");
        root.expectInOrder(["StaticText: 00:00"]);
    }

    function enter(text: string) {
        root.type(text);
        root.settle();
    }

    function goTo(label: string, key: int) {
        for (let step = 0; step < 9 && !root.focusedOn(label); ++step) {
            keyClick(key);
        }
    }

    function focusedOn(label: string): bool {
        return root.Window.activeFocusItem?.["label"] === label;
    }

    height: 570
    name: "Workspace"
    width: 660
}
