import QtQuick
import QtQuick.Layouts
import Perchly.Look
import Perchly.Stores
import Perchly.Extensions

/// The content of the workspace window: a picker, the section that it chose, and the store's last
/// notice. What was typed into a section is still there when the person comes back to it.
WindowBody {
    id: root

    required property Productivity tools
    required property ShelfLibrary library
    required property ShelfModel model
    required property ShelfPreferences preferences
    required property ShelfExtras extras

    readonly property list<string> sections: ["Search", "Files", "Clipboard", "Layouts", "Shortcuts", "Meetings", "Launch", "Snippets", "Focus", "Device"]
    readonly property string extrasView: "qrc:/qt/qml/Perchly/Extensions/"
    readonly property string section: root.extras.section

    /// What was typed into the sections' fields.
    property string link: ""
    property string layoutName: ""
    readonly property ExtrasDrafts drafts: ExtrasDrafts {}

    /// Shows the chosen section; who had the keyboard in the one before has it there.
    function show() {
        root.load();
        if (place.focus) {
            place.nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason);
        }
    }

    function load() {
        switch (root.section) {
        case "Search":
            place.setSource(root.extrasView + "SearchToolsView.qml", { drafts: root.drafts, extras: root.extras, library: root.library, preferences: root.preferences, tools: root.tools });
            break;
        case "Files":
            place.setSource("FilesSection.qml", { extras: root.extras, tools: root.tools, workspace: root });
            break;
        case "Clipboard":
            place.setSource("ClipboardSection.qml", { extras: root.extras, tools: root.tools, workspace: root });
            break;
        case "Layouts":
            place.setSource("LayoutsSection.qml", { tools: root.tools, workspace: root });
            break;
        case "Shortcuts":
            place.setSource("ShortcutsSection.qml", { tools: root.tools, workspace: root });
            break;
        default:
            place.setSource(root.extrasView + "ExtraToolsView.qml", { drafts: root.drafts, extras: root.extras, model: root.model, preferences: root.preferences, section: root.section, tools: root.tools });
        }
    }

    minimumHeight: 500
    minimumWidth: 620
    title: "Your workspace"

    Component.onCompleted: root.show()
    onSectionChanged: root.show()

    RowLayout {
        spacing: 10

        Label {
            font.pixelSize: 13
            text: "Tools"
        }
        MenuPicker {
            Layout.preferredWidth: 200
            currentIndex: root.sections.indexOf(root.section)
            label: "Tools"
            options: root.sections

            onChosen: index => root.extras.section = root.sections[index]
        }
    }

    Loader {
        id: place

        Layout.fillHeight: true
        Layout.fillWidth: true
    }

    NoticeRow {
        Layout.fillWidth: true
        message: root.tools.message

        onDismissed: root.tools.dismissMessage()
    }
}
