import QtQuick
import QtQuick.Layouts
import Perchly.Look
import Perchly.Stores

/// A process that plays audio, with its level if it is routed through the program.
RowCard {
    id: root

    required property VolumeMixer mixer
    required property int appId
    required property string name
    required property string path
    required property bool routed
    required property real level
    required property int percent
    required property bool muted
    required property string process

    /// The user enabled the process, and its slider makes the row grow.
    signal enabledHere()

    /// The program's accessible name, which the buttons repeat.
    readonly property string subject: root.process === "" ? root.name : root.name + ", " + root.process

    Accessible.description: root.process
    Accessible.name: root.name
    Accessible.role: Accessible.ListItem

    onRoutedChanged: route.cameAt = Date.now() // the button's word changes in place

    ColumnLayout {
        spacing: 10
        width: parent.width

        RowLayout {
            spacing: 10

            ApplicationPicture {
                Layout.preferredHeight: 30
                Layout.preferredWidth: 30
                path: root.path
                visible: root.path !== ""
            }
            BodyText {
                Layout.fillWidth: true
                Layout.maximumWidth: root.process === "" ? -1 : Math.ceil(implicitWidth)
                Layout.minimumHeight: 30
                font.weight: Font.Medium
                maximumLineCount: 1
                text: root.name
            }
            CaptionText {
                Layout.fillWidth: true
                Layout.minimumWidth: Math.ceil(implicitWidth)
                color: Theme.grey
                maximumLineCount: 1
                text: root.process
                visible: root.process !== ""
                wrapMode: Text.NoWrap
            }
            PushButton {
                id: route

                Layout.minimumWidth: 76
                subject: root.subject
                text: root.routed ? qsTr("Release") : qsTr("Enable")

                onActivated: {
                    if (root.routed) {
                        root.mixer.release(root.appId);
                    } else {
                        root.enabledHere();
                        root.mixer.enable(root.appId);
                    }
                }
            }
        }
        RowLayout {
            spacing: 10
            visible: root.routed

            IconButton {
                Accessible.checkable: true
                Accessible.checked: root.muted
                Layout.leftMargin: -6 // aligns the symbol with the name above
                color: root.muted ? Theme.grey : Theme.text
                subject: root.subject
                symbol: root.muted ? "speaker.slash.fill" : "speaker.2.fill"
                toolTip: qsTr("Toggle mute")

                onActivated: root.mixer.mute(root.appId)
            }
            ValueSlider {
                Accessible.description: root.process === "" ? percentage.text : percentage.text + ", " + root.process
                Layout.fillWidth: true
                color: root.muted ? Theme.grey : Theme.accent
                current: root.level
                label: qsTr("%1 volume").arg(root.name)

                onAsked: value => root.mixer.set(root.appId, value)
            }
            Item {
                Layout.preferredHeight: percentage.height
                Layout.preferredWidth: 40

                DigitText {
                    id: percentage

                    anchors.right: parent.right
                    color: Theme.grey
                    size: 13
                    text: qsTr("%1%").arg(root.percent)
                }
            }
        }
    }
}
