import QtQuick
import Perchly.Look
import Perchly.Stores
import Perchly.Extensions

/// The panel of one of the extras' sections; the one of the device for any other name.
Item {
    id: root

    required property string section
    required property Productivity tools
    required property ShelfModel model
    required property ShelfPreferences preferences
    required property ShelfExtras extras
    required property ExtrasDrafts drafts

    Component.onCompleted: {
        switch (root.section) {
        case "Meetings":
            place.setSource("MeetingsPanel.qml", { extras: root.extras, tools: root.tools });
            break;
        case "Launch":
            place.setSource("LaunchPanel.qml", { drafts: root.drafts, extras: root.extras });
            break;
        case "Snippets":
            place.setSource("SnippetsPanel.qml", { drafts: root.drafts, extras: root.extras, tools: root.tools });
            break;
        case "Focus":
            place.setSource("FocusToolsView.qml", { model: root.model, preferences: root.preferences });
            break;
        default:
            place.setSource("DevicePanel.qml", { extras: root.extras });
        }
    }

    Loader {
        id: place

        anchors.fill: parent
    }
}
