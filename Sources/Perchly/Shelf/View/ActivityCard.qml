import QtQuick
import Perchly.Look
import Perchly.Stores
import Perchly.Shelf

/// The current activity: the focus timer, else the track, else one line of text.
Item {
    id: root

    required property ShelfModel model
    required property ShelfPreferences preferences
    required property CompactStatus status

    readonly property string look: root.model.seconds >= 1 ? "timer" : root.model.musicActive ? "media" : "idle"
    readonly property bool low: root.preferences.compact
    readonly property int mainSize: root.model.running ? 25 : 14

    readonly property string symbol: root.look === "timer" ? "timer" : root.look === "media" ? "play.rectangle.fill" : "waveform"
    readonly property string mainLine: root.look === "timer" ? root.status.time : root.look === "media" ? root.model.musicTitle : root.model.activity
    readonly property string doing: root.model.playing ? qsTr("Playing") : qsTr("Paused")
    readonly property string secondLine: {
        switch (root.look) {
        case "timer": return "";
        case "media": return root.before(root.model.musicArtist) + root.before(root.model.mediaSource) + root.doing;
        default: return qsTr("Your current activity lives here");
        }
    }

    function before(part: string): string {
        return part === "" ? "" : part + " · ";
    }

    Accessible.name: qsTr("Activity")
    Accessible.role: Accessible.Grouping

    onMainLineChanged: {
        if (root.look !== "timer" && !Theme.reduceMotion) {
            arrival.restart();
        }
    }

    RoundedRect {
        anchors.fill: parent
        color: Theme.card
        radius: 18
    }

    Column {
        id: column

        anchors.left: parent.left
        anchors.leftMargin: 10
        anchors.right: parent.right
        anchors.rightMargin: 10
        anchors.verticalCenter: parent.verticalCenter
        spacing: root.low ? 5 : 9

        Symbol {
            anchors.horizontalCenter: parent.horizontalCenter
            color: root.look === "timer" ? Theme.shelfOrange : Theme.shelfAccent
            name: root.symbol
            // A low card has no room for the large size above a row of controls.
            size: root.low && root.look !== "idle" ? 14 : 22
        }
        Item {
            Accessible.name: root.mainLine
            Accessible.role: Accessible.StaticText
            height: root.look === "timer" ? 30 : 18
            width: column.width

            DigitText {
                id: time

                anchors.centerIn: parent
                size: root.mainSize
                text: root.look === "timer" ? root.mainLine : ""
                visible: root.look === "timer"
                weight: Font.Medium

                Behavior on size {
                    enabled: !Theme.reduceMotion

                    NumberAnimation { duration: 200; easing.type: Easing.OutQuad }
                }
            }
            Label {
                id: title

                anchors.fill: parent
                font.pixelSize: 14
                font.weight: Font.Medium
                horizontalAlignment: Text.AlignHCenter
                text: root.look === "timer" ? "" : root.mainLine
            }
            ToolTipArea {
                text: title.truncated ? title.text : ""
            }
            NumberAnimation {
                id: arrival

                duration: 200
                easing.type: Easing.OutQuad
                from: 0
                property: "opacity"
                target: title
                to: 1
            }
        }
        // If space is short, names are elided first, not the player's controls.
        Item {
            id: second

            readonly property bool media: root.look === "media"
            readonly property real room: column.width - doing.width - (artist.visible ? dot.width : 0)

            Accessible.ignored: !visible
            Accessible.name: root.secondLine
            Accessible.role: Accessible.StaticText
            height: doing.implicitHeight
            visible: root.look !== "timer"
            width: column.width

            Row {
                anchors.horizontalCenter: parent.horizontalCenter

                Label {
                    id: artist

                    color: Theme.shelfGrey
                    text: second.media ? root.model.musicArtist : ""
                    visible: text !== ""
                    width: Math.min(implicitWidth, second.room - source.width)
                }
                Label {
                    id: dot

                    color: Theme.shelfGrey
                    text: " · "
                    visible: artist.visible
                }
                Label {
                    id: source

                    color: Theme.shelfGrey
                    text: second.media ? root.model.mediaSource : ""
                    width: Math.min(implicitWidth, Math.max(second.room / 2, second.room - artist.implicitWidth))
                }
                Label {
                    id: doing

                    color: Theme.shelfGrey
                    text: second.media ? (source.text !== "" ? " · " : "") + root.doing : root.secondLine
                }
            }
            ToolTipArea {
                text: artist.truncated || source.truncated ? root.secondLine : ""
            }
        }
        MusicControls {
            anchors.horizontalCenter: parent.horizontalCenter
            model: root.model
            visible: root.look === "media"
        }
        Row {
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: 8
            visible: root.look === "timer"

            CardButton {
                text: root.model.running ? qsTr("Pause") : qsTr("Resume")
                onActivated: root.model.togglePause()
            }
            CardButton {
                text: qsTr("End session")
                onActivated: root.model.endFocus()
            }
        }
    }
}
