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
        root.fixture.productivity.held.remove("file:///tmp/a%20b.txt");
        root.settle();
        root.push("Copy path / link");
        compare(root.fixture.copied(), "https://a.example/");
        root.show("Clipboard");
        root.expectInOrder(["AlertMessage: Copied. Paste into your app with ⌘V.", "Button: Dismiss"]);
        root.push("Dismiss");
        verify(!root.has("Button: Dismiss"));
        root.show("Files");
        root.push("Remove");
        root.expectInOrder(["StaticText: Drop here"]);
    }

    function test_whatWasTypedStays() {
        root.open("Files");
        root.view.link = "example.org";
        root.show("Layouts");
        root.view.layoutName = "Work";
        root.show("Files");
        root.push("Add link");
        compare(root.fixture.productivity.held.count, 0);
        compare(root.view.link, "example.org");
        root.view.link = "https://example.org";
        root.show("Layouts");
        root.push("Save current");
        compare(root.view.layoutName, "");
        root.expectInOrder(["ListItem: Work", "Button: Apply", "Button: Delete"]);
        root.fixture.fill([], []);
        root.push("Apply");
        compare(root.fixture.library.count, 5);
        root.push("Delete");
        compare(root.fixture.productivity.layouts.count, 0);
        root.show("Files");
        root.push("Add link");
        compare(root.view.link, "");
        compare(root.fixture.productivity.held.count, 1);
    }

    /// Deleting one row after the other needs no more than the same key.
    function test_theKeyboardStaysInTheList() {
        root.fixture.productivity.held.hold(["https://a.example/", "https://b.example/", "https://c.example/"]);
        root.open("Files");
        for (let step = 0; step < 9 && !root.focusedOn("Copy all"); ++step) {
            keyClick(Qt.Key_Tab);
        }
        keyClick(Qt.Key_Return);
        compare(root.fixture.copied(), "https://a.example/ https://b.example/ https://c.example/");
        keyClick(Qt.Key_Tab);
        keyClick("c", Qt.ControlModifier);
        compare(root.fixture.copied(), "https://a.example/");
        for (let step = 0; step < 9 && !root.focusedOn("Remove"); ++step) {
            keyClick(Qt.Key_Right);
        }
        keyClick(Qt.Key_Return);
        root.settle();
        verify(root.focusedOn("Remove"));
        keyClick(Qt.Key_Space);
        root.settle();
        verify(root.focusedOn("Remove"));
        compare(root.fixture.productivity.held.count, 1);
        keyClick(Qt.Key_Return);
        root.settle();
        verify(root.focusedOn("Add files…"));
    }

    function enter(text: string) {
        root.type(text);
        root.settle();
    }

    function test_searchByKeyboardAlone() {
        const tools = root.fixture.productivity;
        root.fixture.prefer("quickNote", "Buy milk");
        root.open("Files");
        root.show("Search");
        verify(root.fixture.install(["Mail", "Ma-il", "Mahjongg"]));
        root.settle();
        root.enter("MA");
        root.expectInOrder(["Heading: Clipboard", "ListItem: Mail", "ListItem: Ma-il", "ListItem: Mahjongg"]);
        verify(!root.has("EditableText: Quick note"));
        keyClick(Qt.Key_Return);
        compare(root.fixture.takeOpened(), ["file:///apps/Mail"]);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Down);
        verify(root.focusedOn("Ma-il"));
        keyClick(Qt.Key_Return);
        compare(root.fixture.takeOpened(), ["file:///apps/Ma-il"]);
        // What comes meanwhile leaves the keyboard where it is; typing goes on in the field.
        tools.held.hold(["https://mail.example/"]);
        root.fixture.library.refresh();
        verify(root.fixture.install(["Mac", "Mail", "Ma-il"]));
        root.settle();
        verify(root.focusedOn("Ma-il"));
        keyClick(Qt.Key_Down);
        verify(root.focusedOn("https://mail.example/"));
        keyClick(Qt.Key_Space);
        compare(root.fixture.takeOpened(), ["https://mail.example/"]);
        root.enter("c");
        keyClick(Qt.Key_Return);
        compare(root.fixture.takeOpened(), ["file:///apps/Mac"]);
        root.enter("zz");
        keyClick(Qt.Key_Return);
        compare(root.fixture.takeOpened(), []);
        keyClick(Qt.Key_Escape);
        root.settle();
        root.expectInOrder(["Heading: Quick note"]);
        root.expectInOrder(["EditableText: Quick note"]);
        root.show("Launch");
        root.show("Search");
        root.enter("milk");
        for (let step = 0; step < 9 && root.Window.activeFocusItem?.["text"] !== "Buy milk"; ++step) {
            keyClick(Qt.Key_Tab);
        }
        keyClick(Qt.Key_A, Qt.ControlModifier);
        keyClick(Qt.Key_Delete);
        root.settle();
        compare(root.fixture.stored("quickNote"), "");
        root.enter("tea"); // neither empty nor what was searched for: it stays while it is written in
        compare(root.fixture.stored("quickNote"), "tea");
        root.expectInOrder(["EditableText: Quick note"]);
        keyClick(Qt.Key_Tab);
        root.settle();
        verify(!root.has("EditableText: Quick note"));
    }

    function test_theWheelLeavesTheKeyboardToItsRow() {
        root.open("Files");
        root.show("Search");
        const names = Array.from({ length: 60 }, (_, number) => "App " + (100 + number));
        verify(root.fixture.install(names));
        root.settle();
        root.enter("app");
        for (let step = 0; step < 3; ++step) {
            keyClick(Qt.Key_Down);
        }
        verify(root.focusedOn("App 102"));
        for (let step = 0; step < 20; ++step) {
            mouseWheel(root.view, 300, 300, 0, -120);
        }
        root.settle();
        keyClick(Qt.Key_Return);
        compare(root.fixture.takeOpened(), []);
        keyClick(Qt.Key_Down);
        verify(root.focusedOn("App 102"));
        keyClick(Qt.Key_PageDown);
        keyClick(Qt.Key_Escape);
        root.enter(" 14"); // other rows, of which the first is entered
        keyClick(Qt.Key_Tab);
        verify(root.focusedOn("App 140"));
    }

    function test_aSearchCopiesClipsAndSnippets() {
        root.fixture.extras.snippets.pin("pinned text");
        root.open("Launch");
        root.show("Search");
        root.push("pinned text");
        compare(root.fixture.copied(), "pinned text");
    }

    function test_groupsAndSnippetsAreMadeUsedAndRemoved() {
        root.fixture.fill([], ["one"]);
        root.fixture.productivity.held.hold(["https://example.org/x"]);
        root.open("Launch");
        root.view.drafts.groupName = "  ";
        root.show("Snippets");
        root.show("Launch");
        root.push("Save current");
        compare(root.fixture.extras.groups.count, 0);
        root.view.drafts.groupName = " Day ";
        root.show("Snippets");
        root.show("Launch");
        root.push("Save current");
        compare(root.view.drafts.groupName, "");
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
        root.fixture.prefer("breakMinutes", 2);
        root.open("Focus");
        for (let step = 0; step < 9 && root.Window.activeFocusItem?.["text"] !== "Focus: 179 minutes"; ++step) {
            keyClick(Qt.Key_Tab);
        }
        keyClick(Qt.Key_Up);
        keyClick(Qt.Key_Up);
        compare(root.fixture.stored("focusMinutes"), 180);
        keyClick(Qt.Key_Tab);
        keyClick(Qt.Key_Left);
        keyClick(Qt.Key_Left);
        compare(root.fixture.stored("breakMinutes"), 1);
        root.push("Start break");
        root.expectInOrder(["StaticText: 01:00", "Button: Pause"]);
        root.push("Start focus");
        verify(root.fixture.model.quietFocus);
        root.expectInOrder(["StaticText: 180:00"]);
        root.fixture.advance(61);
        root.push("Pause");
        root.expectInOrder(["StaticText: 178:59", "Button: Resume"]);
        root.push("End");
        root.expectInOrder(["StaticText: 00:00"]);
    }

    function focusedOn(label: string): bool {
        return root.Window.activeFocusItem?.["label"] === label;
    }

    height: 570
    name: "Workspace"
    width: 660
}
