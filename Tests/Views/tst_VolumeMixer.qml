import QtQuick
import Perchly.Tests
import Perchly.VolumeMixer

/// The mixer window's content in its smallest size.
ViewTestCase {
    id: root

    property MixerFixture audio: null

    property Component audioComponent: Component { MixerFixture {} }
    property Component viewComponent: Component { VolumeMixerView {} }

    /// Opens the window beside applications that play.
    function open(names: var) {
        root.audio = createTemporaryObject(root.audioComponent, root) as MixerFixture;
        root.audio.play(names);
        root.make(root.viewComponent, { mixer: root.audio.mixer, height: 430, width: 580 });
    }

    /// The visible control of that name.
    function control(name: string): var {
        const find = item => item.visible && item["label"] === name ? item : Array.from(item.children).map(find).find(Boolean);
        return find(root.made);
    }

    function test_anAppIsEnabledMutedAndReleased() {
        root.open([]);
        compare(root.everything(), [
            "Heading: App volume", "Button: Release all",
            "StaticText: Start audio in an app, then enable its slider. Audio stays on this Mac; nothing is recorded or uploaded.",
            "StaticText: Experimental · macOS audio-capture permission required. Release restores the app’s original audio route.",
            "StaticText: No apps playing audio. Start music or a video, then refresh.",
            "Button: Refresh", "StaticText: Browser audio may appear as helper processes."
        ]);
        root.audio.play(["Music"]);
        root.press("Refresh");
        tryVerify(() => root.has("ListItem: Music"));
        root.press("Enable");
        compare(root.everything().slice(4), [
            "List: Apps playing audio",
            "ListItem: Music", "StaticText: Music", "Button: Release", "Button: Toggle mute", "Slider: Music volume",
            "Button: Refresh", "StaticText: Browser audio may appear as helper processes."
        ]);
        verify(root.fixture.setAccessible(root.made, "Music volume", 0.555));
        fuzzyCompare(root.audio.level("Music"), 0.555, 0.0001);
        verify(root.fixture.describedAs(root.made, "55%"));
        root.press("Toggle mute");
        verify(root.audio.muted("Music"));
        verify(root.fixture.describedAs(root.made, "55%"));
        root.press("Release all");
        compare(root.audio.level("Music"), -1);
        compare(root.control("Music volume"), undefined);
    }

    function test_aDragGoesOnWhileTheListChanges() {
        root.open(["Music", "Radio"]);
        root.press("Enable"); // the last one
        const slider = root.control("Radio volume");
        mousePress(slider, slider.width * 0.75, 10);
        fuzzyCompare(root.audio.level("Radio"), 0.76, 0.03);
        root.audio.play(["Radio"]);
        root.audio.advance(2);
        tryVerify(() => !root.has("ListItem: Music"));
        compare(root.control("Radio volume"), slider);
        mouseMove(slider, slider.width * 0.25, 10);
        fuzzyCompare(root.audio.level("Radio"), 0.24, 0.03);
        mouseRelease(slider, slider.width * 0.25, 10);
    }

    function test_aDoubleClickEnables() {
        root.open(["Music"]);
        const button = root.control("Enable");
        mouseClick(button);
        mouseClick(button);
        compare(button.label, "Release");
        wait(550);
        mouseClick(button);
        compare(button.label, "Enable");
    }

    name: "VolumeMixer"
    width: 700
    height: 600
}
