pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Perchly.Look
import Perchly.Stores
import Perchly.Extensions

/// One search over everything. Return acts on the first match, the arrows go through all rows, and
/// typing continues in the field wherever the keyboard is.
ColumnLayout {
    id: root

    required property Productivity tools
    required property ShelfLibrary library
    required property ShelfExtras extras
    required property ShelfPreferences preferences
    required property ExtrasDrafts drafts

    readonly property SearchResults results: root.extras.search
    readonly property bool shown: root.Window.window?.visible ?? false
    /// The highlighted row's text, for assistive programs.
    property string choice: ""

    /// Called when the panel appears or is requested again.
    function begin() {
        list.startOver();
        root.library.refresh();
        root.results.editingNote = false;
        field.forceActiveFocus(Qt.ShortcutFocusReason);
        field.selectAll();
    }

    function open(row: SearchRow) {
        switch (row.kind) {
        case "app":
            root.tools.openApplication(row.target, row.label);
            break;
        case "clip":
            root.tools.clipboard.copyClip(row.target);
            break;
        case "snippet":
            root.tools.clipboard.copyText(row.target);
            break;
        case "held":
            root.tools.open(row.target);
        }
    }

    /// The highlighted row, or null.
    function highlighted(): SearchRow {
        list.view.forceLayout();
        const row = list.view.itemAtIndex(1) as SearchRow;
        return row?.first ? row : null;
    }

    /// Acts on the highlighted row, if any. A note is edited; after anything else the window closes.
    function openFirst() {
        list.startOver();
        const row = root.highlighted();
        if (row?.isNote) {
            list.focusFrom(1, 1, 0);
        } else if (row) {
            root.open(row);
            root.close();
        }
    }

    function close() {
        root.Window.window.close();
    }

    function toField() {
        field.forceActiveFocus(Qt.BacktabFocusReason);
    }

    spacing: 10

    Component.onCompleted: {
        if (root.shown) {
            root.begin();
        }
    }
    Keys.onDownPressed: event => {
        event.accepted = field.activeFocus && list.focusFrom(0, 1, 0);
    }
    Keys.onPressed: event => {
        const typed = event.text >= " " && event.key !== Qt.Key_Delete && !(event.modifiers & (Qt.ControlModifier | Qt.AltModifier | Qt.MetaModifier));
        event.accepted = typed && !field.activeFocus;
        if (event.accepted) {
            root.toField();
            field.insert(field.length, event.text);
        }
    }
    Keys.onUpPressed: event => {
        // The list has not accepted the key, so there is no row above.
        event.accepted = list.view.activeFocus;
        if (event.accepted) {
            root.toField();
        }
    }
    onShownChanged: {
        if (root.shown) {
            root.begin();
        }
    }

    Timer {
        id: telling

        interval: 0

        onTriggered: {
            const row = root.highlighted();
            root.choice = row?.isNote ? qsTr("Quick note") : row?.label ?? "";
        }
    }
    Connections {
        target: root.extras

        function onSectionChanged() {
            if (root.shown && root.extras.section === "Search") {
                root.begin();
            }
        }
    }

    TextEntry {
        id: field

        Accessible.description: root.choice
        Layout.fillWidth: true
        placeholder: qsTr("Search apps, notes, clipboard, and files")
        symbol: "search"
        text: root.drafts.query

        Keys.onEscapePressed: event => event.accepted = false // closes the window, too
        onAccepted: root.openFirst()
        onTextChanged: {
            root.drafts.query = field.text;
            root.results.query = field.text;
            list.startOver();
        }
    }
    ScrollList {
        id: list

        Layout.fillHeight: true
        Layout.fillWidth: true
        cacheBuffer: 0 // each key would also rebuild rows outside the view
        label: qsTr("Search results")
        placeholder: field.text !== "" ? qsTr("No results") : ""
        model: root.results
        reuseItems: true
        spacing: 2

        delegate: SearchRow {
            id: row

            tools: root.tools
            first: row.index === 1 && field.text !== "" && field.activeFocus

            onActivated: root.open(row)
            onEntered: root.close()
            onFirstChanged: telling.restart()
            onLabelChanged: telling.restart()
            onEdited: note => root.preferences.note = note
            onEditingChanged: {
                if (row.editing || root.Window.active) { // not because another window became active
                    root.results.editingNote = row.editing;
                }
            }
        }
    }
}
