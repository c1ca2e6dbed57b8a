pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Perchly.Look
import Perchly.Stores

/// The processes that play audio, each with its own level once it is routed through the program.
WindowBody {
    id: root

    required property VolumeMixer mixer

    minimumHeight: 430
    minimumWidth: 580
    title: qsTr("App volume")

    accessory: PushButton {
        text: qsTr("Release all")
        usable: root.mixer.routing

        onActivated: root.mixer.releaseAll()
    }

    onAppeared: root.mixer.refresh()

    SecondaryText {
        Layout.fillWidth: true
        text: qsTr("Start audio in an app, then enable its slider. Audio stays on this computer; nothing is recorded or uploaded.")
    }
    CaptionText {
        Layout.fillWidth: true
        color: Theme.grey
        text: qsTr("Release restores the app’s original audio route.")
    }
    BodyText {
        Layout.fillWidth: true
        color: Theme.orange
        text: qsTr("Needs PipeWire, which is not running.")
        visible: !root.mixer.supported
    }
    Item {
        Layout.fillHeight: true
        Layout.fillWidth: true
        Layout.minimumHeight: 100
        visible: list.count === 0

        EmptyText {
            text: qsTr("No apps playing audio. Start music or a video, then refresh.")
        }
    }
    ScrollList {
        id: list

        Layout.fillHeight: true
        Layout.fillWidth: true
        label: qsTr("Apps playing audio")
        model: root.mixer.apps
        spacing: 12
        visible: list.count > 0

        delegate: AudioAppRow {
            id: app

            mixer: root.mixer

            onEnabledHere: list.follow(app)
        }
    }
    NoticeText {
        Layout.fillWidth: true
        text: root.mixer.error
        visible: root.mixer.error !== ""
    }
    RowLayout {
        spacing: 12

        PushButton {
            text: qsTr("Refresh")

            onActivated: root.mixer.refresh()
        }
        CaptionText {
            Layout.fillWidth: true
            color: Theme.grey
            text: qsTr("Browser audio may appear as helper processes.")
        }
    }
}
