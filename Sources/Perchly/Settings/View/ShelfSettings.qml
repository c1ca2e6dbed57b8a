import QtQuick
import QtQuick.Layouts
import Perchly.Look
import Perchly.Stores

/// The content of the settings window: what the shelf shows, and how.
WindowBody {
    id: root

    required property ShelfLibrary library
    required property ShelfPreferences preferences

    property string section: "My shelf"

    minimumHeight: 540
    minimumWidth: 620
    spacing: 18
    subtitle: "Choose your widgets and apps. Changes save automatically."
    title: "Make it your shelf"

    onAppeared: {
        root.library.refresh();
        root.preferences.refresh();
    }

    SegmentedPicker {
        Layout.fillWidth: true
        current: root.section
        label: "Section"
        options: ["My shelf", "Apps", "Preferences"]

        onChosen: option => root.section = option
    }
    // A section stays once it was made, so that going back to it takes no time.
    Item {
        Layout.fillHeight: true
        Layout.fillWidth: true

        Loader {
            id: myShelf

            anchors.fill: parent
            visible: root.section === "My shelf"

            Component.onCompleted: myShelf.setSource("MyShelfSection.qml", { library: root.library })
        }
        Loader {
            id: preferences

            readonly property bool wanted: root.section === "Preferences"

            active: false
            anchors.fill: parent
            visible: preferences.wanted

            onWantedChanged: {
                if (preferences.wanted && !preferences.active) {
                    preferences.setSource("PreferencesSection.qml", { preferences: root.preferences });
                    preferences.active = true;
                }
            }
        }
        Loader {
            id: apps

            readonly property bool wanted: !myShelf.visible && !preferences.wanted

            active: false
            anchors.fill: parent
            visible: apps.wanted

            onWantedChanged: {
                if (apps.wanted && !apps.active) {
                    apps.setSource("AppsSection.qml", { library: root.library });
                    apps.active = true;
                }
            }
        }
    }
}
