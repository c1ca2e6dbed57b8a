import QtQuick
import Perchly.Look
import Perchly.Stores
import Perchly.Shelf

/// A pinned widget: its title, the menu that changes it, and its content.
Item {
    id: root

    required property ShelfModel model
    required property ShelfPreferences preferences
    required property ShelfExtras extras
    required property ShellActions shell
    required property CompactStatus status
    required property PopoverLayer popovers
    /// The widget's title.
    required property string widget
    /// "left" or "right".
    required property string side

    Accessible.name: title.text
    Accessible.role: Accessible.Grouping

    RoundedRect {
        anchors.fill: parent
        color: Theme.card
        radius: 18
    }

    Symbol {
        id: symbol

        anchors.verticalCenter: title.verticalCenter
        color: Theme.shelfGrey
        name: WidgetLook.symbol(root.widget)
        size: 10
        x: 13
    }
    Label {
        id: title

        anchors.left: symbol.right
        anchors.leftMargin: 5
        anchors.right: menu.left
        anchors.rightMargin: 6
        color: Theme.shelfGrey
        font.pixelSize: 10
        height: 14
        text: WidgetLook.name(root.widget)
        y: 13
    }
    PressButton {
        id: menu

        anchors.right: parent.right
        anchors.rightMargin: 8
        anchors.verticalCenter: title.verticalCenter
        focusInset: 0
        height: 22
        label: qsTr("Change pinned widget")
        plate: Qt.rgba(1, 1, 1, menu.containsMouse || root.popovers.anchorItem === menu ? 0.075 : 0)
        plateRadius: 7
        subject: title.text
        toolTip: menu.label
        width: 26
        onActivated: root.popovers.chooseWidget(menu, root.side, root.widget)

        Symbol {
            anchors.centerIn: parent
            color: menu.containsMouse ? Theme.text : Theme.shelfGrey
            name: "ellipsis"
            size: 12
        }
    }

    Loader {
        id: body

        readonly property string page: {
            switch (root.widget) {
            case "Focus timer": return "TimerCard.qml";
            case "Music": return "MusicCard.qml";
            case "Quick note": return "NoteCard.qml";
            case "Calendar": return "CalendarCard.qml";
            default: return "ClockCard.qml";
            }
        }

        anchors.bottom: parent.bottom
        anchors.bottomMargin: 13
        anchors.left: parent.left
        anchors.leftMargin: 13
        anchors.right: parent.right
        anchors.rightMargin: 13
        anchors.top: title.bottom
        anchors.topMargin: 10

        Component.onCompleted: {
            body.fill();
            body.pageChanged.connect(body.fill);
        }

        function fill() {
            body.setSource(body.page, {
                extras: root.extras,
                model: root.model,
                preferences: root.preferences,
                shell: root.shell,
                status: root.status
            });
        }
    }
}
