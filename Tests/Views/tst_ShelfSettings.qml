import QtQuick
import Perchly.Settings

/// The settings window's content in its smallest size, used by keyboard alone.
ViewTestCase {
    id: root

    readonly property ShelfSettings view: root.made as ShelfSettings

    property Component viewComponent: Component { ShelfSettings {} }

    function open(section: string) {
        root.make(root.viewComponent, {
            library: root.fixture.library,
            preferences: root.fixture.preferences,
            section: section,
            height: 540,
            width: 620
        });
    }

    function go(keys: var) {
        keys.forEach(key => keyClick(key));
    }

    /// How many accessible things there are of that kind and name.
    function count(thing: string): int {
        return root.everything().filter(found => found === thing).length;
    }

    function test_myShelfSaysWhatItIsAndHoldsEveryEntry() {
        root.fixture.fill(["Clock"], ["b"]);
        root.open("My shelf");
        tryVerify(() => root.count("ListItem: b") === 1); // when the list has its height
        compare(root.everything(), [
            "Heading: Make it your shelf",
            "StaticText: Choose your widgets and apps. Changes save automatically.",
            "Grouping: Section", "RadioButton: My shelf", "RadioButton: Apps", "RadioButton: Preferences",
            "CheckBox: Show only favorites in the shelf",
            "StaticText: Use the eye to show or hide, the star to favorite, and arrows to rearrange.",
            "List: Shelf entries",
            "ListItem: Clock", "Button: Hide", "Button: Favorite", "Button: Move earlier", "Button: Move later",
            "ListItem: b", "Button: Hide", "Button: Favorite", "Button: Move earlier", "Button: Move later", "Button: Remove from shelf"
        ]);
    }

    function test_entriesAreHiddenMovedAndRemovedByKeys() {
        root.fixture.fill(["Clock"], ["a", "b"]);
        root.open("My shelf");
        root.tab(2);
        keyClick(Qt.Key_Space);
        compare(root.fixture.shown(), ["/apps/a", "/apps/b"]);
        compare(root.count("Button: Show"), 1);
        keyClick(Qt.Key_Space); // the same button shows it again
        compare(root.fixture.shown().length, 3);
        root.go([Qt.Key_Right, Qt.Key_Right]); // past the star; the first arrow is disabled
        for (const place of [1, 2, 2]) { // at the end it stays there
            keyClick(Qt.Key_Space);
            compare(root.fixture.entries().indexOf("widget:Clock"), place);
        }
        compare(root.Window.activeFocusItem.Accessible.name, "Clock");
        root.go([Qt.Key_Home, Qt.Key_Right, Qt.Key_Right, Qt.Key_Right, Qt.Key_Right, Qt.Key_Right]);
        for (const [subject, left] of [["a", 2], ["b", 1], ["Clock", 1]]) { // which has no such button
            tryVerify(() => root.Window.activeFocusItem?.["subject"] === subject);
            keyClick(Qt.Key_Return);
            compare(root.fixture.entries().length, left);
        }
    }

    function test_applicationsAreFoundAndAdded() {
        root.fixture.fill([], ["b"]);
        root.fixture.library.toggle("/apps/b", 0);
        root.open("Apps");
        verify(root.fixture.install(["a", "b", "c", "Éditeur"]));
        tryVerify(() => root.count("Button: Add") === 4);
        root.tab(1);
        root.type("D");
        tryVerify(() => root.count("Button: Add") === 1);
        keyClick(Qt.Key_Escape);
        tryVerify(() => root.count("Button: Add") === 4);
        root.go([Qt.Key_Down, Qt.Key_Up, Qt.Key_Down]); // back to the search once
        for (const shown of [["/apps/a"], ["/apps/b", "/apps/a"], ["/apps/b", "/apps/a", "/apps/c"]]) {
            keyClick(Qt.Key_Space);
            compare(root.fixture.shown(), shown);
            compare(root.count("Button: Added"), shown.length);
        }
    }

    function test_thePreferencesInTheirOrder() {
        root.open("Preferences");
        compare(root.everything().slice(6), [
            "ComboBox: Theme", "ComboBox: Accent", "Slider: Opacity", "CheckBox: Compact shelf content",
            "ComboBox: Display", "ComboBox: Screen edge", "Button: Reset position to top center",
            "StaticText: Drag the shelf header to dock on the top, left, or right edge. Your position saves automatically.",
            "Slider: Shelf size", "CheckBox: Expand on hover", "Slider: Collapse delay", "CheckBox: Launch at login",
            "StaticText: Keyboard: ⌃⌥K opens search. ⌃⌥Space toggles the shelf. ⌘1–9 launches the corresponding visible app while the shelf is open. Escape closes it.",
            "StaticText: For login launch, install Perchly in Applications first."
        ]);
    }

    function test_aPreferenceIsStoredAtOnce_data() {
        return [
            { tag: "accent by its letter", tabs: 2, keys: [Qt.Key_Down, Qt.Key_O, Qt.Key_Return], key: "shelfAccent", value: "Orange" },
            { tag: "compact content", tabs: 4, keys: [Qt.Key_Space], key: "compactMode", value: true },
            { tag: "display", tabs: 5, keys: [Qt.Key_Space, Qt.Key_Down, Qt.Key_Return], key: "displayIndex", value: 1, calls: ["resize"] },
            { tag: "the reset", tabs: 7, keys: [Qt.Key_Return], key: "shelfEdgePosition", value: 0.5, calls: ["resize"] },
            { tag: "size", tabs: 8, keys: [Qt.Key_End], key: "shelfScale", value: 1.2, text: "120%" },
            { tag: "delay", tabs: 10, keys: [Qt.Key_Home], key: "hoverDelay", value: 0.2, text: "0.2 s" }
        ];
    }

    function test_aPreferenceIsStoredAtOnce(data: var) {
        root.fixture.attachDisplays(["Left", "Right"]);
        root.open("Preferences");
        root.tab(data.tabs);
        root.go(data.keys);
        compare(root.fixture.stored(data.key), data.value);
        compare(root.fixture.takeCalls(), data.calls ?? []);
        verify(!data.text || root.fixture.describedAs(root.view, data.text));
    }

    function test_aRefusedLoginItemSaysWhyAndStaysOff() {
        root.fixture.refuseLogin("No room left.");
        root.open("Preferences");
        root.tab(11);
        keyClick(Qt.Key_Space);
        verify(!root.fixture.preferences.login);
        compare(root.everything().filter(found => found.endsWith("No room left.")).length, 1);
    }

    height: 540
    name: "ShelfSettings"
    width: 620
}
