import QtQuick
import QtTest
import Perchly.Look
import Perchly.Tests
import Perchly.VolumeMixer

/// The mixer window's content in its smallest size.
TestCase {
    id: root

    property MixerFixture fixture: null
    property VolumeMixerView view: null
    readonly property ShelfFixture reader: ShelfFixture {}

    property Component fixtureComponent: Component { MixerFixture {} }
    property Component viewComponent: Component { VolumeMixerView {} }

    function init() {
        failOnWarning(/.?/);
        root.fixture = root.fixtureComponent.createObject(root) as MixerFixture;
    }

    function cleanup() {
        root.view.destroy();
        wait(0);
        root.fixture.destroy();
        wait(0);
    }

    function open() {
        root.view = root.viewComponent.createObject(root, {
            mixer: root.fixture.mixer,
            height: 430,
            width: 580
        }) as VolumeMixerView;
        wait(0);
    }

    function accessible(): var {
        return root.reader.accessibleWithin(root.view);
    }

    /// What there is from the list on.
    function list(): var {
        const all = root.accessible();
        return all.slice(all.findIndex(thing => thing.startsWith("List:")));
    }

    function press(name: string) {
        verify(root.reader.pressAccessible(root.view, name), name);
    }

    function sliders(item: Item): var {
        let found = item instanceof ValueSlider ? [item] : [];
        for (let index = 0; index < item.children.length; ++index) {
            found = found.concat(root.sliders(item.children[index]));
        }
        return found;
    }

    function slider(name: string): var {
        return root.sliders(root.view).find(found => found.visible && found.label === name);
    }

    function test_whatIsThereWithoutApps() {
        root.open();
        compare(root.accessible(), [
            "Heading: App volume", "Button: Release all",
            "StaticText: Start audio in an app, then enable its slider. Audio stays on this Mac; nothing is recorded or uploaded.",
            "StaticText: Experimental · macOS audio-capture permission required. Release restores the app’s original audio route.",
            "StaticText: No apps playing audio. Start music or a video, then refresh.",
            "Button: Refresh", "StaticText: Browser audio may appear as helper processes."
        ]);
        root.fixture.play(["Music"]);
        root.press("Refresh");
        tryVerify(() => root.accessible().includes("ListItem: Music"));
        verify(!root.accessible().includes("StaticText: No apps playing audio. Start music or a video, then refresh."));
    }

    function test_anAppIsEnabledMutedAndReleased() {
        root.fixture.play(["Music", "Radio"]);
        root.open(); // it reads the list as it appears
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
        verify(root.reader.setAccessible(root.view, "Radio volume", 0.555));
        fuzzyCompare(root.fixture.level("Radio"), 0.555, 0.0001);
        verify(root.reader.describedAs(root.view, "55%"));
        const before = root.slider("Radio volume").share;
        root.press("Toggle mute");
        verify(root.fixture.muted("Radio"));
        compare(root.slider("Radio volume").share, before);
        verify(root.reader.describedAs(root.view, "55%"));
        root.press("Release all");
        compare(root.fixture.level("Radio"), -1);
        compare(root.slider("Radio volume"), undefined);
    }

    function test_aDragGoesOnWhileTheListChanges() {
        root.fixture.play(["Music", "Radio"]);
        root.open();
        root.press("Enable");
        const slider = root.slider("Radio volume");
        const middle = slider.height / 2;
        mousePress(slider, slider.width * 0.75, middle);
        const first = root.fixture.level("Radio");
        verify(first > 0.7 && first < 0.8, first);
        root.fixture.play(["Alarm", "Music", "Radio"]);
        root.fixture.advance(2);
        tryVerify(() => root.accessible().includes("ListItem: Alarm"));
        root.fixture.play(["Radio"]);
        root.fixture.advance(2);
        tryVerify(() => !root.accessible().includes("ListItem: Music"));
        compare(root.slider("Radio volume"), slider);
        mouseMove(slider, slider.width * 0.25, middle);
        const second = root.fixture.level("Radio");
        verify(second > 0.2 && second < 0.3, second);
        mouseRelease(slider, slider.width * 0.25, middle);
    }

    function test_messagesStay() {
        root.fixture.play(["Music"]);
        root.fixture.refuse();
        root.open();
        root.press("Enable");
        const message = "AlertMessage: Cannot create private audio route (-50).";
        verify(root.accessible().includes(message));
        root.fixture.advance(10);
        verify(root.accessible().includes(message));
    }

    function test_withoutAnAudioSystemItSaysSo() {
        root.fixture.setSupported(false);
        root.open();
        const notice = "StaticText: Requires macOS 14.2 or later.";
        verify(root.accessible().includes(notice));
        root.fixture.setSupported(true);
        verify(!root.accessible().includes(notice));
    }

    when: windowShown
    width: 700
    height: 600
    visible: true
}
