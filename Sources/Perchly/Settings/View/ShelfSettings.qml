pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Perchly.Look
import Perchly.Stores

/// The content of the settings window: the shelf's entries, applications and preferences.
WindowBody {
    id: root

    required property ShelfLibrary library
    required property ShelfPreferences preferences
    required property ShelfHotKey hotKey

    property string section: "My shelf"

    minimumHeight: 540
    minimumWidth: 620
    spacing: 18
    subtitle: qsTr("Choose your widgets and apps. Changes save automatically.")
    title: qsTr("Make it your shelf")

    onAppeared: {
        root.library.refresh();
        root.preferences.refresh();
    }

    SegmentedPicker {
        Layout.fillWidth: true
        current: root.section
        label: qsTr("Section")
        names: [qsTr("My shelf"), qsTr("Apps"), qsTr("Preferences")]
        options: ["My shelf", "Apps", "Preferences"]

        onChosen: option => root.section = option
    }
    // A section is kept once created, so that returning to it is instant.
    Item {
        Layout.fillHeight: true
        Layout.fillWidth: true

        Repeater {
            model: [["My shelf", "MyShelfSection.qml"], ["Apps", "AppsSection.qml"], ["Preferences", "PreferencesSection.qml"]]

            Loader {
                id: place

                required property var modelData
                readonly property bool wanted: root.section === place.modelData[0]

                function fill() {
                    if (place.wanted && place.source == "") {
                        place.setSource(place.modelData[1], place.modelData[0] === "Preferences" ? {
                            hotKey: root.hotKey,
                            preferences: root.preferences
                        } : { library: root.library });
                    }
                }

                anchors.fill: parent
                visible: place.wanted

                Component.onCompleted: place.fill()
                onWantedChanged: place.fill()
            }
        }
    }
}
