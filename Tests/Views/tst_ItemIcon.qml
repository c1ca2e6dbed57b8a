import QtQuick
import QtTest
import Perchly.Look

/// The pictures of entries in lists, by the colours that are drawn.
TestCase {
    id: root

    height: 120
    name: "ItemIcon"
    visible: true
    when: windowShown
    width: 120

    Rectangle {
        id: ground

        anchors.fill: parent
        color: "black"
    }

    Component {
        id: iconComponent

        ItemIcon {}
    }

    function has(picture: var, name: string): bool {
        const color = Qt.color(name);
        const near = (part, of) => Math.abs(part - of * 255) < 24;
        for (let y = 0; y < 38; ++y) {
            for (let x = 0; x < 38; ++x) {
                if (near(picture.red(x, y), color.r) && near(picture.green(x, y), color.g) && near(picture.blue(x, y), color.b)) {
                    return true;
                }
            }
        }
        return false;
    }

    function test_picture_data(): var {
        return [
            {tag: "a widget's tile", properties: {kind: "widget", widget: "Clock"}, seen: ["#64d2ff", "white"], unseen: []},
            {tag: "a shortcut's symbol", properties: {kind: "shortcut"}, seen: ["#bf5af2"], unseen: ["white"]},
            {tag: "an application's picture", properties: {kind: "application", path: "/a.desktop"}, seen: ["#ff0000"], unseen: ["#b3b3b3"]},
            {tag: "a generic picture for what is gone", properties: {kind: "application", path: "/gone/a.desktop"}, seen: ["#b3b3b3"], unseen: ["#ff0000"]},
            {tag: "nothing for what is nothing", properties: {kind: ""}, seen: [], unseen: ["#b3b3b3", "white", "#bf5af2"]}
        ];
    }

    function test_picture(data: var) {
        const icon = createTemporaryObject(iconComponent, ground, data.properties) as ItemIcon;
        compare(Qt.size(icon.width, icon.height), Qt.size(38, 38));
        let picture = null;
        // An application's comes from another thread.
        tryVerify(() => {
            picture = grabImage(icon);
            return data.seen.every(color => root.has(picture, color));
        });
        verify(!data.unseen.some(color => root.has(picture, color)));
    }
}
