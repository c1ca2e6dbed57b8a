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

    function goRight(count: int) {
        for (let step = 0; step < count; ++step) {
            keyClick(Qt.Key_Right);
        }
    }

    /// How many accessible things there are of that kind and name.
    function count(thing: string): int {
        return root.everything().filter(found => found === thing).length;
    }

    function test_myShelfSaysWhatItIsAndHoldsEveryEntry() {
        root.fixture.fill(["Clock"], ["b"]);
        root.fixture.addShortcut("Resize");
        root.open("My shelf");
        tryVerify(() => root.count("ListItem: Resize") === 1); // when the list has its height
        compare(root.everything(), [
            "Heading: Make it your shelf",
            "StaticText: Choose your widgets and apps. Changes save automatically.",
            "Grouping: Section", "RadioButton: My shelf", "RadioButton: Apps", "RadioButton: Preferences",
            "CheckBox: Show only favorites in the shelf",
            "StaticText: Use the eye to show or hide, the star to favorite, and arrows to rearrange.",
            "List: Shelf entries",
            "ListItem: Clock", "Button: Hide", "Button: Favorite", "Button: Move earlier", "Button: Move later",
            "ListItem: b", "Button: Hide", "Button: Favorite", "Button: Move earlier", "Button: Move later", "Button: Remove from shelf",
            "ListItem: Resize", "Button: Hide", "Button: Favorite", "Button: Move earlier", "Button: Move later", "Button: Remove from shelf"
        ]);
    }

    function test_hidingKeepsTheRow() {
        root.open("My shelf");
        root.tab(2);
        keyClick(Qt.Key_Space);
        compare(root.fixture.shown().length, 4);
        compare(root.count("Button: Show"), 1);
        compare(root.count("ListItem: Clock"), 1);
        keyClick(Qt.Key_Space); // the same button shows it again
        compare(root.fixture.shown().length, 5);
    }

    function test_favoritesOnlyChangesTheShelfAndNotTheList() {
        root.open("My shelf");
        root.tab(1);
        keyClick(Qt.Key_Space);
        compare(root.fixture.shown(), []);
        tryVerify(() => root.count("Button: Hide") === 5);
        root.tab(1);
        root.goRight(1);
        keyClick(Qt.Key_Space);
        compare(root.fixture.shown(), ["widget:Clock"]);
    }

    function test_movingKeepsTheKeyboardWithTheEntry() {
        root.open("My shelf");
        root.tab(2);
        root.goRight(2); // past the star; the first arrow is disabled
        for (let step = 1; step < 5; ++step) {
            keyClick(Qt.Key_Space);
            compare(root.fixture.entries().indexOf("widget:Clock"), step);
        }
        keyClick(Qt.Key_Space); // at the end it stays there, however often that is said
        compare(root.fixture.entries().indexOf("widget:Clock"), 4);
        compare(root.Window.activeFocusItem.Accessible.name, "Clock");
        root.goRight(3);
        keyClick(Qt.Key_Space);
        compare(root.fixture.entries().indexOf("widget:Clock"), 3);
    }

    function test_removingGoesOnInTheNextRow() {
        root.fixture.fill(["Clock"], ["a", "b", "c"]);
        root.open("My shelf");
        root.tab(2);
        keyClick(Qt.Key_Down);
        root.goRight(4);
        keyClick(Qt.Key_Return);
        compare(root.fixture.entries(), ["widget:Clock", "/apps/b", "/apps/c"]);
        keyClick(Qt.Key_Return);
        keyClick(Qt.Key_Return);
        compare(root.fixture.entries(), ["widget:Clock"]);
        keyClick(Qt.Key_Return); // the clock has no such button; what has the keyboard moves nothing
        compare(root.fixture.entries(), ["widget:Clock"]);
    }

    function test_theKeyboardScrollsALongList() {
        const names = Array.from({ length: 40 }, (_, index) => "app" + index);
        root.fixture.fill([], names);
        root.open("My shelf");
        root.tab(2);
        for (let step = 0; step < 60; ++step) {
            keyClick(Qt.Key_Down);
        }
        keyClick(Qt.Key_Space);
        compare(root.fixture.shown().length, 39);
        verify(!root.fixture.shown().includes("/apps/app39"));
        verify(root.everything().includes("Button: Show"));
    }

    function test_theSearchNarrowsInAnyCase() {
        verify(!root.fixture.install([]));
        root.open("Apps");
        compare(root.count("Button: Add"), 0);
        verify(root.fixture.install(["Editor", "Music Éditeur", "Terminal"]));
        tryVerify(() => root.count("Button: Add") === 3);
        root.tab(1);
        for (const [typed, names] of [["EDIT", ["Editor"]], ["TERM", ["Terminal"]], ["mUSIC", ["Music Éditeur"]], ["x", []]]) {
            root.type(typed);
            const rows = () => root.everything().filter(found => found.startsWith("ListItem: "));
            tryVerify(() => rows().join() === names.map(name => "ListItem: " + name).join());
            keyClick(Qt.Key_Escape);
            tryVerify(() => root.count("Button: Add") === 3);
        }
    }

    function test_addingTurnsIntoAddedAndGoesOn() {
        root.fixture.fill([], ["b"]);
        root.fixture.library.toggle("/apps/b", 0);
        root.open("Apps");
        verify(root.fixture.install(["a", "b", "c"]));
        tryVerify(() => root.count("Button: Add") === 3);
        root.tab(1);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Up); // back to the search
        keyClick(Qt.Key_Down);
        for (const shown of [["/apps/a"], ["/apps/b", "/apps/a"], ["/apps/b", "/apps/a", "/apps/c"]]) {
            keyClick(Qt.Key_Space);
            compare(root.fixture.shown(), shown);
            compare(root.count("Button: Added"), shown.length);
        }
        compare(root.fixture.entries(), ["/apps/b", "/apps/a", "/apps/c"]);
    }

    function test_browseAsksForMore() {
        root.open("Apps");
        root.tab(2);
        verify(!root.fixture.browsing());
        keyClick(Qt.Key_Space);
        verify(root.fixture.browsing());
        verify(root.everything().includes("StaticText: Browse lets you add an app from any other folder."));
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
        const space = [Qt.Key_Space];
        const second = [Qt.Key_Space, Qt.Key_Down, Qt.Key_Return];
        return [
            { tag: "theme", tabs: 1, keys: second, key: "shelfTheme", value: "Graphite" },
            { tag: "accent by its letter", tabs: 2, keys: [Qt.Key_Down, Qt.Key_O, Qt.Key_Return], key: "shelfAccent", value: "Orange" },
            { tag: "opacity", tabs: 3, keys: [Qt.Key_Home], key: "shelfOpacity", value: 0.65 },
            { tag: "compact content", tabs: 4, keys: space, key: "compactMode", value: true },
            { tag: "display", tabs: 5, keys: second, key: "displayIndex", value: 1, calls: ["resize"] },
            { tag: "edge", tabs: 6, keys: [Qt.Key_Up, Qt.Key_End, Qt.Key_Return], key: "shelfEdge", value: "right", calls: ["resize"] },
            { tag: "the reset", tabs: 7, keys: [Qt.Key_Return], key: "shelfEdgePosition", value: 0.5, calls: ["resize"] },
            { tag: "the smallest size", tabs: 8, keys: [Qt.Key_Home], key: "shelfScale", value: 0.85, text: "85%" },
            { tag: "the largest size", tabs: 8, keys: [Qt.Key_End, Qt.Key_Right], key: "shelfScale", value: 1.2, text: "120%" },
            { tag: "opening on hover", tabs: 9, keys: space, key: "openOnHover", value: false },
            { tag: "the shortest delay", tabs: 10, keys: [Qt.Key_Home, Qt.Key_Left], key: "hoverDelay", value: 0.2, text: "0.2 s" },
            { tag: "the longest delay", tabs: 10, keys: [Qt.Key_PageUp, Qt.Key_PageUp], key: "hoverDelay", value: 1.5, text: "1.5 s" }
        ];
    }

    function test_aPreferenceIsStoredAtOnce(data: var) {
        root.fixture.attachDisplays(["Left", "Right"]);
        root.open("Preferences");
        root.tab(data.tabs);
        data.keys.forEach(key => keyClick(key));
        compare(root.fixture.stored(data.key), data.value);
        compare(root.fixture.takeCalls(), data.calls ?? []);
        if (data.text) {
            const found = root.fixture.describedAs(root.view, data.text);
            verify(found, "nothing says " + data.text);
        }
    }

    function test_theFormFollowsWhatIsStored() {
        root.fixture.prefer("shelfTheme", 7);
        root.fixture.prefer("displayIndex", 9);
        root.fixture.attachDisplays(["Left", "Right"]);
        root.open("Preferences");
        verify(root.fixture.describedAs(root.view, "Midnight"));
        verify(root.fixture.describedAs(root.view, "Right"));
        compare(root.fixture.stored("displayIndex"), 9);
        root.fixture.prefer("shelfTheme", "Ocean");
        root.fixture.attachDisplays(["Only"]);
        verify(root.fixture.describedAs(root.view, "Ocean"));
        verify(root.fixture.describedAs(root.view, "Only"));
    }

    function test_aRefusedLoginItemSaysWhyAndStaysOff() {
        root.fixture.refuseLogin("No room left.");
        root.open("Preferences");
        root.tab(11);
        keyClick(Qt.Key_Space);
        verify(!root.fixture.preferences.login);
        compare(root.everything().filter(found => found.endsWith("No room left.")).length, 1);
        root.fixture.refuseLogin("");
        keyClick(Qt.Key_Space);
        verify(root.fixture.preferences.login);
        root.view.section = "Apps";
        root.view.section = "Preferences";
        compare(root.everything().filter(found => found.endsWith("No room left.")).length, 0);
        verify(root.fixture.preferences.login);
    }

    height: 540
    name: "ShelfSettings"
    width: 620
}
