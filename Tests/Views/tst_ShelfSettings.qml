import QtQuick
import Perchly.Settings

/// The content of the smallest settings window, used by keyboard alone.
ViewTestCase {
    id: root

    readonly property ShelfSettings view: root.made as ShelfSettings

    property Component viewComponent: Component { ShelfSettings {} }

    function open(section: string) {
        root.make(root.viewComponent, {
            hotKey: root.fixture.hotKey,
            library: root.fixture.library,
            preferences: root.fixture.preferences,
            section: section,
            height: 540,
            width: 620
        });
    }

    function shown(): list<string> {
        return Array.from(root.fixture.library.shown, item => item.id);
    }

    /// Counts accessible objects with that role and name.
    function count(thing: string): int {
        return root.everything().filter(found => found === thing).length;
    }

    function test_entriesHaveAllButtonsInOrder() {
        root.fixture.fill(["Clock"], ["b"]);
        root.open("My shelf");
        tryVerify(() => root.count("ListItem: b") === 1); // once the list has its height
        compare(root.everything(), [
            "Heading: Make it your shelf",
            "StaticText: Choose your widgets and apps. Changes save automatically.",
            "Grouping: Section", "RadioButton: My shelf", "RadioButton: Apps", "RadioButton: Preferences",
            "CheckBox: Show only favorites in the shelf",
            "StaticText: Use the eye to show or hide, the star to favorite, and arrows to rearrange.",
            "List: Shelf entries",
            "ListItem: Clock", "Button: Hide", "Button: Favorite", "Button: Move earlier (disabled)", "Button: Move later",
            "ListItem: b", "Button: Hide", "Button: Favorite", "Button: Move earlier", "Button: Move later (disabled)", "Button: Remove from shelf"
        ]);
    }

    function test_entriesAreHiddenMovedAndRemovedByKeys() {
        root.fixture.fill(["Clock"], ["a", "b"]);
        root.open("My shelf");
        root.tab(2);
        keyClick(Qt.Key_Space);
        compare(root.shown(), ["/apps/a", "/apps/b"]);
        compare(root.count("Button: Show"), 1);
        keyClick(Qt.Key_Space); // the same button shows it again
        root.go([Qt.Key_Right, Qt.Key_Right]); // past the star; the first arrow is disabled
        for (const place of [1, 2, 2]) { // the third time it is already at the end
            keyClick(Qt.Key_Space);
            compare(root.shown().indexOf("widget:Clock"), place);
        }
        root.go([Qt.Key_Home, Qt.Key_Right, Qt.Key_Right, Qt.Key_Right, Qt.Key_Right, Qt.Key_Right]);
        for (const [subject, left] of [["a", 2], ["b", 1], ["Clock", 1]]) { // Clock must stay
            tryVerify(() => root.Window.activeFocusItem?.["subject"] === subject);
            keyClick(Qt.Key_Return);
            compare(root.shown().length, left);
        }
    }

    function test_applicationsAreFoundAndAdded() {
        root.fixture.fill([], []);
        root.open("Apps");
        verify(root.fixture.install(["a", "b", "Éditeur"]));
        tryVerify(() => root.count("Button: Add") === 3);
        root.tab(1);
        root.type("E");
        tryVerify(() => root.count("Button: Add") === 1);
        keyClick(Qt.Key_Escape);
        tryVerify(() => root.count("Button: Add") === 3);
        keyClick(Qt.Key_Down);
        for (const shown of [["/apps/a"], ["/apps/a", "/apps/b"]]) { // moves to the next row
            keyClick(Qt.Key_Space);
            compare(root.shown(), shown);
            compare(root.count("Button: Added (disabled)"), shown.length);
        }
    }

    function test_preferencesAreStoredAtOnce() {
        root.open("Preferences");
        compare(root.everything().slice(6), [
            "ComboBox: Theme", "ComboBox: Accent", "Slider: Opacity", "CheckBox: Compact shelf content",
            "ComboBox: Display", "ComboBox: Screen edge", "CheckBox: Over panels", "Button: Reset position to top center",
            "StaticText: Drag the shelf header to dock on the top, left, or right edge. Your position saves automatically.",
            "Slider: Shelf size", "CheckBox: Expand on hover", "Slider: Opening delay", "Slider: Collapse delay",
            "Button: Toggle shelf", "Button: Reset (disabled)", "Button: Open search", "Button: Reset (disabled)",
            "CheckBox: Launch at login",
            "StaticText: Keyboard: Ctrl+Alt+K opens search. Ctrl+Alt+Space toggles the shelf. Ctrl+1–9 launches the corresponding visible app while the shelf is open. Escape closes it.",
            "StaticText: Install Perchly before you turn on launch at login.",
            "Heading: Desktop notifications", "CheckBox: Focus session or break over",
            "CheckBox: Shortcut finished or failed", "CheckBox: Capture taken",
            "CheckBox: Command or launch failed", "CheckBox: Meeting starting in 5 minutes"
        ]);
        root.view.height = 300;
        root.view.y = 240;
        root.tab(2);
        keyClick(Qt.Key_Space);
        const menu = root.Window.activeFocusItem.ListView.view;
        const top = menu.mapToItem(null, 0, 0).y;
        verify(top >= 0 && top + menu.height <= root.height, `a menu from ${top}, ${menu.height} high`);
        keyClick(Qt.Key_Escape);
        for (const [tabs, keys, key, value] of [
            [0, [Qt.Key_Down, Qt.Key_O, Qt.Key_Return], "shelfAccent", "Orange"],
            [2, [Qt.Key_Space], "compactMode", true],
            [3, [Qt.Key_Space], "overPanels", true],
            [1, [Qt.Key_Return], "shelfEdgePosition", 0.5],
            [1, [Qt.Key_End], "shelfScale", 1.2],
            [2, [Qt.Key_End], "openingDelay", 0.5],
            [1, [Qt.Key_Home], "hoverDelay", 0.2]
        ]) {
            root.tab(tabs);
            root.go(keys);
            compare(root.fixture.stored(key), value);
        }
        compare(root.fixture.takeCalls(), ["resize", "resize"]);
        verify(root.Window.activeFocusItem.mapToItem(root.view, 0, 0).y < root.view.height - 28, "out of sight");
        verify(root.fixture.describedAs(root.view, "120%") && root.fixture.describedAs(root.view, "500 ms") && root.fixture.describedAs(root.view, "0.2 s"));
        root.tab(3);
        keyClick(Qt.Key_Space);
        verify(!root.fixture.preferences.login);
        compare(root.everything().filter(found => found.endsWith("Nothing here starts programs at login.")).length, 1);
        root.tab(1);
        keyClick(Qt.Key_Space);
        compare(root.fixture.stored("announceFocus"), false);
    }

    function test_chordsAreRecorded() {
        const controlAlt = Qt.ControlModifier | Qt.AltModifier;
        root.open("Preferences");
        root.tab(13);
        for (const [key, modifiers, chord, problem] of [
            [Qt.Key_J, Qt.NoModifier, undefined, "Hold Ctrl, Alt or Super as well."],
            [Qt.Key_K, controlAlt, undefined, "Ctrl+Alt+K already opens search."],
            [Qt.Key_Escape, Qt.NoModifier, undefined, ""],
            [Qt.Key_J, controlAlt, "Ctrl+Alt+J", ""],
            [Qt.Key_Backspace, Qt.NoModifier, undefined, ""]
        ]) {
            keyClick(Qt.Key_Space); // in the field, starts recording
            keyClick(key, modifiers);
            tryVerify(() => root.fixture.stored("toggleChord") === chord);
            tryVerify(() => problem !== "" ? root.has("AlertMessage: " + problem) : !root.everything().some(found => found.startsWith("AlertMessage")), 5000, problem);
        }
        compare(root.fixture.hotKey.toggleText, "Ctrl+Alt+Space");
    }

    height: 540
    name: "ShelfSettings"
    width: 620
}
