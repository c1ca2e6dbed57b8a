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
            { tag: "Search", texts: ["Heading: Search"] },
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
            { tag: "Snippets", texts: ["Heading: Snippets"] },
            { tag: "anything else", texts: ["Heading: anything else"] }
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
        for (let step = 0; step < 40 && !root.focusedOn("Remove"); ++step) {
            keyClick(Qt.Key_Tab);
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

    function focusedOn(label: string): bool {
        return root.Window.activeFocusItem?.["label"] === label;
    }

    height: 570
    name: "Workspace"
    visible: true
    when: windowShown
    width: 660
}
