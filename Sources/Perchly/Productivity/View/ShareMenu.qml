pragma ComponentBehavior: Bound

import QtQuick
import Perchly.Look
import Perchly.Stores

/// A button with a menu of programs to which a file or link can be sent.
IconButton {
    id: root

    required property Productivity tools
    required property url url

    readonly property list<string> names: root.targets.map(target => target.name).concat([qsTr("Copy")])
    property var targets: []
    property bool asking: false

    function ask() {
        root.asking = true;
        root.tools.findShareTargets(root.url);
    }

    function choose(index: int) {
        if (index < root.targets.length) {
            root.tools.share(root.url, root.targets[index].id);
        } else {
            root.tools.clipboard.copyItems([root.url]);
        }
    }

    symbol: "square.arrow.up"
    toolTip: qsTr("Share")

    onActivated: root.ask()

    Connections {
        target: root.tools

        function onShareTargetsFound(url: url, targets: var) {
            if (root.asking && String(url) === String(root.url)) {
                root.asking = false;
                root.targets = targets;
                (menu.createObject(anchor) as MenuList).open();
            }
        }
    }

    // As wide as the menu.
    Item {
        id: anchor

        anchors.right: parent.right
        height: parent.height
        width: 220
    }
    Component {
        id: menu

        MenuList {
            current: -1
            label: qsTr("Share")
            opener: root
            options: root.names

            onChosen: index => root.choose(index)
        }
    }
}
