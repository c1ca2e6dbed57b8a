import QtQuick
import Perchly.Look
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

    /// What there is from the list on.
    function list(): var {
        const all = root.everything();
        return all.slice(all.findIndex(thing => thing.startsWith("List:")));
    }

    function controls(item: Item): var {
        let found = item instanceof ValueSlider || item instanceof PressButton ? [item] : [];
        for (let index = 0; index < item.children.length; ++index) {
            found = found.concat(root.controls(item.children[index]));
        }
        return found;
    }

    function control(name: string): var {
        return root.controls(root.made).find(found => found.visible && found.label === name);
    }

    function test_whatIsThereWithoutApps() {
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
        verify(!root.has("StaticText: No apps playing audio. Start music or a video, then refresh."));
    }

    function test_anAppIsEnabledMutedAndReleased() {
        root.open(["Music", "Radio"]); // it reads the list as it appears
        compare(root.list(), [
            "List: Apps playing audio",
            "ListItem: Music", "StaticText: Music", "Button: Enable",
            "ListItem: Radio", "StaticText: Radio", "Button: Enable",
            "Button: Refresh", "StaticText: Browser audio may appear as helper processes."
        ]);
        root.press("Enable"); // the last one
        compare(root.list().slice(4, 9), [
            "ListItem: Radio", "StaticText: Radio", "Button: Release", "Button: Toggle mute", "Slider: Radio volume"
        ]);
        verify(root.fixture.setAccessible(root.made, "Radio volume", 0.555));
        fuzzyCompare(root.audio.level("Radio"), 0.555, 0.0001);
        verify(root.fixture.describedAs(root.made, "55%"));
        const before = root.control("Radio volume").share;
        root.press("Toggle mute");
        verify(root.audio.muted("Radio"));
        compare(root.control("Radio volume").share, before);
        verify(root.fixture.describedAs(root.made, "55%"));
        root.press("Release all");
        compare(root.audio.level("Radio"), -1);
        compare(root.control("Radio volume"), undefined);
    }

    function test_aDragGoesOnWhileTheListChanges() {
        root.open(["Music", "Radio"]);
        root.press("Enable");
        const slider = root.control("Radio volume");
        const middle = slider.height / 2;
        mousePress(slider, slider.width * 0.75, middle);
        const first = root.audio.level("Radio");
        verify(first > 0.7 && first < 0.8, first);
        root.audio.play(["Alarm", "Music", "Radio"]);
        root.audio.advance(2);
        tryVerify(() => root.has("ListItem: Alarm"));
        root.audio.play(["Radio"]);
        root.audio.advance(2);
        tryVerify(() => !root.has("ListItem: Music"));
        compare(root.control("Radio volume"), slider);
        mouseMove(slider, slider.width * 0.25, middle);
        const second = root.audio.level("Radio");
        verify(second > 0.2 && second < 0.3, second);
        mouseRelease(slider, slider.width * 0.25, middle);
    }

    function test_aDoubleClickEnables() {
        root.open(["Music"]);
        const button = root.control("Enable");
        mouseClick(button);
        compare(button.label, "Release");
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
