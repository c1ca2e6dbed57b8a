import QtQuick
import Perchly.Look
import Perchly.Stores

/// The row of buttons that open the program's other windows.
Item {
    id: root

    required property ShelfModel model
    required property Productivity productivity
    required property ShelfExtras extras
    required property ShellActions shell

    implicitHeight: 20

    Row {
        anchors.left: parent.left
        anchors.verticalCenter: parent.verticalCenter
        spacing: 14

        TextButton {
            symbol: "search"
            text: qsTr("Search")
            onActivated: {
                root.extras.section = "Search";
                root.shell.showTools();
            }
        }
        TextButton {
            symbol: "camera"
            text: qsTr("Capture")
            onActivated: root.extras.capture.start()
        }
        TextButton {
            symbol: "slider.horizontal.3"
            text: qsTr("Mixer")
            onActivated: root.shell.showMixer()
        }
        TextButton {
            symbol: "tray"
            text: qsTr("Workspace")
            onActivated: root.shell.showTools()
        }
        TextButton {
            symbol: "moon"
            text: root.model.quietFocus ? qsTr("End focus") : qsTr("Focus")
            onActivated: {
                if (root.model.quietFocus) {
                    root.model.endFocus();
                } else {
                    root.model.quietFocus = true;
                    root.model.focus();
                }
            }
        }
        TextButton {
            color: Theme.shelfAccent
            text: qsTr("%n held", "", root.productivity.held.count)
            visible: root.productivity.held.count > 0
            onActivated: {
                root.extras.section = "Files";
                root.shell.showTools();
            }
        }
    }
}
