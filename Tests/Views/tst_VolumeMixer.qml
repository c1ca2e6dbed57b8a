import QtQuick
import Perchly.VolumeMixer

/// The content of the smallest mixer window.
ViewTestCase {
    id: root

    property Component viewComponent: Component { VolumeMixerView {} }

    /// Opens the window while those applications play.
    function open(names: var) {
        root.fixture.play(names);
        root.make(root.viewComponent, { mixer: root.fixture.mixer, height: 430, width: 580 });
    }

    /// The visible control with that name.
    function control(name: string): var {
        const find = item => item.visible && item["label"] === name ? item : Array.from(item.children).map(find).find(Boolean);
        return find(root.made);
    }

    function test_appIsEnabledAndReleased() {
        root.open([]);
        compare(root.everything(), [
            "Heading: App volume", "Button: Release all (disabled)",
            "StaticText: Start audio in an app, then enable its slider. Audio stays on this computer; nothing is recorded or uploaded.",
            "StaticText: Release restores the app’s original audio route.",
            "StaticText: No apps playing audio. Start music or a video, then refresh.",
            "Button: Refresh", "StaticText: Browser audio may appear as helper processes."
        ]);
        root.fixture.play(["Music"]);
        root.press("Refresh");
        tryVerify(() => root.has("ListItem: Music"));
        root.press("Enable");
        compare(root.everything().slice(4, -2), [
            "List: Apps playing audio",
            "ListItem: Music", "StaticText: Music", "Button: Release", "Button: Toggle mute", "Slider: Music volume"
        ]);
        verify(root.fixture.setAccessible(root.made, "Music volume", 0.555));
        verify(root.fixture.describedAs(root.made, "55%"));
        root.press("Release all");
        compare(root.control("Music volume"), undefined);
    }

    function test_dragContinuesWhileTheListChanges() {
        root.open(["Music", "Radio"]);
        root.press("Enable"); // Radio's, the last one
        const slider = root.control("Radio volume");
        mousePress(slider, slider.width * 0.75, 10);
        root.fixture.play(["Radio"]);
        root.fixture.advance(2);
        tryVerify(() => !root.has("ListItem: Music"));
        compare(root.control("Radio volume"), slider);
        mouseMove(slider, slider.width * 0.25, 10);
        fuzzyCompare(slider.current, 0.24, 0.03);
        mouseRelease(slider, slider.width * 0.25, 10);
    }

    function test_doubleClickEnablesOnce() {
        root.open(["Music"]);
        const button = root.control("Enable");
        mouseClick(button);
        mouseClick(button);
        compare(button.label, "Release");
        wait(550);
        mouseClick(button);
        compare(button.label, "Enable");
    }

    height: 600
    name: "VolumeMixer"
    width: 700
}
