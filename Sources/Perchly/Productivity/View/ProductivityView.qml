import QtQuick
import QtQuick.Layouts
import Perchly.Look
import Perchly.Stores
import Perchly.Extensions

/// The content of the workspace window: a picker, the chosen section, and the store's last notice.
/// Text typed into a section is kept while another is shown.
WindowBody {
    id: root

    required property Productivity tools
    required property ShelfLibrary library
    required property ShelfModel model
    required property ShelfPreferences preferences
    required property ShelfExtras extras

    /// The sections in order: their files and initial properties.
    readonly property var views: ({
        Search: ["../Extensions/SearchToolsView", ["drafts", "extras", "library", "preferences", "tools"]],
        Files: ["FilesSection", ["drafts", "extras", "tools"]],
        Clipboard: ["ClipboardSection", ["extras", "tools"]],
        Layouts: ["LayoutsSection", ["drafts", "tools"]],
        Shortcuts: ["ShortcutsSection", ["tools"]],
        Meetings: ["../Extensions/MeetingsPanel", ["extras", "tools"]],
        Launch: ["../Extensions/LaunchPanel", ["drafts", "extras", "tools"]],
        Snippets: ["../Extensions/SnippetsPanel", ["drafts", "extras", "tools"]],
        Focus: ["../Extensions/FocusToolsView", ["model", "preferences"]],
        Device: ["../Extensions/DevicePanel", ["extras"]]
    })
    readonly property list<string> sections: Object.keys(root.views)
    readonly property list<string> sectionNames: [qsTr("Search"), qsTr("Files"), qsTr("Clipboard"), qsTr("Layouts"), qsTr("Shortcuts"), qsTr("Meetings"), qsTr("Launch"), qsTr("Snippets"), qsTr("Focus"), qsTr("Device")]
    readonly property string section: root.extras.section

    /// The unsaved text of the sections' fields.
    readonly property ExtrasDrafts drafts: ExtrasDrafts {}

    /// Shows the chosen section, or else the device section.
    function show() {
        const [file, needs] = root.views[root.section] ?? root.views.Device;
        const given = {};
        needs.forEach(name => given[name] = root[name]);
        place.setSource(file + ".qml", given);
    }

    minimumHeight: 500
    minimumWidth: 620
    start: place
    title: qsTr("Your workspace")

    Component.onCompleted: root.show()
    onSectionChanged: {
        if (root.complete) {
            root.show();
            place.nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason);
        }
    }
    onShownChanged: {
        if (!root.shown) {
            root.tools.dismissMessage();
            root.extras.capture.dismissError();
        }
    }

    RowLayout {
        id: picker

        spacing: 10

        Label {
            font.pixelSize: 13
            text: qsTr("Tools")
        }
        MenuPicker {
            Layout.preferredWidth: 200
            currentIndex: root.sections.indexOf(root.section)
            label: qsTr("Tools")
            options: root.sectionNames

            onChosen: index => root.extras.section = root.sections[index]
        }
    }

    Loader {
        id: place

        Layout.fillHeight: true
        Layout.fillWidth: true
    }

    NoticeRow {
        // Beside the title and the picker, where it covers nothing.
        maxWidth: root.width - 2 * root.padding - picker.implicitWidth - 16
        message: root.tools.message
        parent: root
        x: root.width - root.padding - width
        y: root.padding + picker.y + picker.height + 6 - height

        onDismissed: root.tools.dismissMessage()
    }
}
