import QtQuick
import QtTest
import Perchly.Productivity
import Perchly.Tests

/// The workspace window's content. Any warning fails it.
TestCase {
    id: root

    property ShelfFixture fixture: null
    property ProductivityView view: null

    property Component fixtureComponent: Component { ShelfFixture {} }
    property Component viewComponent: Component { ProductivityView {} }

    function init() {
        failOnWarning(/.?/);
        root.fixture = root.fixtureComponent.createObject(root) as ShelfFixture;
        root.view = root.viewComponent.createObject(root, {
            extras: root.fixture.extras,
            height: root.height,
            library: root.fixture.library,
            model: root.fixture.model,
            preferences: root.fixture.preferences,
            tools: root.fixture.productivity,
            width: root.width
        }) as ProductivityView;
        verify(root.view !== null);
    }

    function cleanup() {
        root.view.destroy();
        wait(0);
        root.fixture.destroy();
        wait(0);
    }

    /// Rows are made before the next picture.
    function settle() {
        wait(40);
    }

    function show(section: string) {
        root.fixture.extras.section = section;
        root.settle();
    }

    function everything(): var {
        return root.fixture.accessibleWithin(root.view);
    }

    function press(name: string) {
        verify(root.fixture.pressAccessible(root.view, name), "no " + name);
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
                "StaticText: Drop files, images, or links here. Drag them into another app when you need them.",
                "Button: Add files…", "EditableText: https://…", "Button: Add link", "Button: Clear",
                "StaticText: Drop here",
                "StaticText: Temporary references only. Originals are never moved or deleted; this tray clears when Perchly quits."] },
            { tag: "Clipboard", texts: [
                "CheckBox: Enable clipboard history for this session",
                "StaticText: Keeps up to 30 text/image copies in memory. Clears on quit. Copies marked confidential by their source app are skipped.",
                "CheckBox: Pause", "Button: Clear history", "EditableText: Search copied text"] },
            { tag: "Layouts", texts: [
                "StaticText: Save the current apps, widgets, favorites, order, and pinned slots.",
                "EditableText: Layout name, e.g. Work", "Button: Save current"] },
            { tag: "Shortcuts", texts: [
                "Heading: Run your Apple Shortcuts", "Button: Refresh",
                "StaticText: Shortcuts run their configured actions, including any app permissions they request.",
                "Button: Open folder"] },
            { tag: "Meetings", texts: [
                "Button: Connect Calendar", "Button: Refresh",
                "StaticText: Connect Calendar to see upcoming meetings.", "List: Meetings"] },
            { tag: "Launch", texts: [
                "EditableText: Workspace name", "Button: Save current",
                "StaticText: Save visible shelf apps together with the files and links currently in your tray."] },
            { tag: "Snippets", texts: [
                "EditableText: New snippet", "Button: Pin", "CheckBox: Keep pinned snippets after quitting",
                "StaticText: Only pinned text is saved when enabled. Clipboard history stays in memory."] },
            { tag: "Focus", texts: [
                "SpinBox: Focus: 25 minutes", "SpinBox: Break: 5 minutes", "StaticText: 00:00",
                "Button: Start focus", "Button: Start break", "Button: Resume", "Button: End",
                "StaticText: Today: 0 focus sessions · 0 minutes"] },
            { tag: "anything else", texts: [
                "Button: Refresh battery", "Button: Capture screen region",
                "StaticText: Drag to select a region. Escape cancels. Captures appear in Files for preview, copying, and dragging."] }
        ];
    }

    function test_aSection(row: var) {
        root.show(row.tag);
        root.expectInOrder(["Heading: Your workspace", "ComboBox: Tools"].concat(row.texts));
    }

    function test_heldItemsComeGoAndAreCopied() {
        root.show("Files");
        verify(root.fixture.drop(root.view, 300, 350, ["file:///tmp/a%20b.txt", "ftp://a.example/", "https://a.example/"]));
        root.settle();
        root.expectInOrder(["StaticText: Drag all 2", "ListItem: a b.txt", "Button: Preview", "Button: Reveal",
            "Button: Copy path / link", "Button: Copy image", "Button: Share", "Button: Remove",
            "ListItem: https://a.example/", "Button: Copy path / link", "Button: Copy image", "Button: Share",
            "Button: Remove"]);
        verify(root.everything().indexOf("StaticText: Drop here") < 0);
        root.fixture.productivity.removeHeld("file:///tmp/a%20b.txt");
        root.settle();
        root.press("Copy path / link");
        compare(root.fixture.copied(), "https://a.example/");
        root.show("Clipboard");
        root.expectInOrder(["AlertMessage: Copied. Paste into your app with ⌘V.", "Button: Dismiss"]);
        root.press("Dismiss");
        verify(root.everything().indexOf("Button: Dismiss") < 0);
        root.show("Files");
        root.press("Remove");
        root.expectInOrder(["StaticText: Drop here"]);
    }

    function test_whatWasTypedStays() {
        root.show("Files");
        root.view.link = "example.org";
        root.show("Layouts");
        root.view.layoutName = "Work";
        root.show("Files");
        root.press("Add link");
        compare(root.fixture.productivity.held.length, 0);
        compare(root.view.link, "example.org");
        root.view.link = "https://example.org";
        root.show("Layouts");
        root.press("Save current");
        compare(root.view.layoutName, "");
        root.expectInOrder(["ListItem: Work", "Button: Apply", "Button: Delete"]);
        root.fixture.fill([], []);
        root.press("Apply");
        compare(root.fixture.library.items.length, 5);
        root.press("Delete");
        compare(root.fixture.productivity.layouts.length, 0);
        root.show("Files");
        root.press("Add link");
        compare(root.view.link, "");
        compare(root.fixture.productivity.held.length, 1);
    }

    /// Deleting one row after the other needs no more than the same key.
    function test_theKeyboardStaysInTheList() {
        root.fixture.productivity.hold(["https://a.example/", "https://b.example/", "https://c.example/"]);
        root.show("Files");
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
        compare(root.fixture.productivity.held.length, 1);
        keyClick(Qt.Key_Return);
        root.settle();
        verify(root.focusedOn("Add files…"));
    }

    function type(text: string) {
        for (const letter of text) {
            keyClick(letter);
        }
        root.settle();
    }

    function test_searchByKeyboardAlone() {
        const tools = root.fixture.productivity;
        root.fixture.prefer("quickNote", "Buy milk");
        root.show("Files");
        root.show("Search");
        verify(root.fixture.install(["Mail", "Ma-il", "Mahjongg"]));
        root.settle();
        root.type("MA");
        root.expectInOrder(["Heading: Clipboard", "ListItem: Mail", "ListItem: Ma-il", "ListItem: Mahjongg"]);
        verify(root.everything().indexOf("EditableText: Quick note") < 0);
        keyClick(Qt.Key_Return);
        compare(root.fixture.takeOpened(), ["file:///apps/Mail"]);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Down);
        verify(root.focusedOn("Ma-il"));
        keyClick(Qt.Key_Return);
        compare(root.fixture.takeOpened(), ["file:///apps/Ma-il"]);
        // What comes meanwhile leaves the keyboard where it is; typing goes on in the field.
        tools.hold(["https://mail.example/"]);
        root.fixture.library.refresh();
        verify(root.fixture.install(["Mac", "Mail", "Ma-il"]));
        root.settle();
        verify(root.focusedOn("Ma-il"));
        keyClick(Qt.Key_Down);
        verify(root.focusedOn("https://mail.example/"));
        keyClick(Qt.Key_Space);
        compare(root.fixture.takeOpened(), ["https://mail.example/"]);
        root.type("c");
        keyClick(Qt.Key_Return);
        compare(root.fixture.takeOpened(), ["file:///apps/Mac"]);
        root.type("zz");
        keyClick(Qt.Key_Return);
        compare(root.fixture.takeOpened(), []);
        keyClick(Qt.Key_Escape);
        root.settle();
        root.expectInOrder(["Heading: Quick note"]);
        root.expectInOrder(["EditableText: Quick note"]);
        root.show("Launch");
        root.show("Search");
        root.type("milk");
        for (let step = 0; step < 9 && root.Window.activeFocusItem?.["text"] !== "Buy milk"; ++step) {
            keyClick(Qt.Key_Tab);
        }
        keyClick(Qt.Key_End);
        root.type("y");
        compare(root.fixture.stored("quickNote"), "Buy milky");
    }

    function test_aSearchCopiesClipsAndSnippets() {
        root.fixture.extras.pin("pinned text");
        root.show("Launch");
        root.show("Search");
        root.press("pinned text");
        compare(root.fixture.copied(), "pinned text");
    }

    function test_groupsAndSnippetsAreMadeUsedAndRemoved() {
        root.fixture.fill([], ["one"]);
        root.fixture.productivity.hold(["https://example.org/x"]);
        root.show("Launch");
        root.view.drafts.groupName = "  ";
        root.show("Snippets");
        root.show("Launch");
        root.press("Save current");
        compare(root.fixture.extras.groups.length, 0);
        root.view.drafts.groupName = " Day ";
        root.show("Snippets");
        root.show("Launch");
        root.press("Save current");
        compare(root.view.drafts.groupName, "");
        root.expectInOrder(["ListItem: Day", "StaticText: one, https://example.org/x", "Button: Launch", "Button: Delete"]);
        root.press("Launch");
        compare(root.fixture.takeOpened(), ["file:///apps/one", "https://example.org/x"]);
        root.press("Delete");
        compare(root.fixture.extras.groups.length, 0);
        root.view.drafts.snippet = " ";
        root.show("Snippets");
        root.press("Pin");
        root.press("Keep pinned snippets after quitting");
        compare(root.fixture.stored("persistSnippets"), true);
        root.expectInOrder(["ListItem:  ", "Button: Copy", "Button: Remove"]);
        root.press("Copy");
        compare(root.fixture.copied(), " ");
        root.press("Remove");
        compare(root.fixture.extras.snippets.length, 0);
    }

    function test_theFocusTimerIsSetAndRun() {
        root.fixture.prefer("focusMinutes", 179);
        root.fixture.prefer("breakMinutes", 2);
        root.show("Focus");
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
        root.press("Start break");
        root.expectInOrder(["StaticText: 01:00", "Button: Pause"]);
        root.press("Start focus");
        verify(root.fixture.model.quietFocus);
        root.expectInOrder(["StaticText: 180:00"]);
        root.fixture.advance(61);
        root.press("Pause");
        root.expectInOrder(["StaticText: 178:59", "Button: Resume"]);
        root.press("End");
        root.expectInOrder(["StaticText: 00:00"]);
    }

    function focusedOn(label: string): bool {
        return root.Window.activeFocusItem?.["label"] === label;
    }

    height: 570
    name: "Workspace"
    visible: true
    when: windowShown
    width: 660
}
