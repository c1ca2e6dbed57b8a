import QtQuick
import Perchly.Look
import Perchly.Stores
import Perchly.Extensions

/// One row of the search results: a group's title, the note, or an entry to open or copy.
FocusScope {
    id: root

    required property Productivity tools
    required property int index
    required property string kind
    required property string label
    required property var target

    readonly property bool isTitle: root.kind === "title"
    readonly property bool isApp: root.kind === "app"
    readonly property bool isNote: root.kind === "note"
    /// Whether this is the note and its editor has the keyboard.
    readonly property bool editing: (place.item as SearchNote)?.editing ?? false
    readonly property var symbols: ({ clip: "doc.on.clipboard", snippet: "pin.fill" })

    /// Whether Return in the search field acts on this row.
    property bool first: false
    /// Kept in the view's pool for reuse; hidden, also from assistive programs.
    property bool pooled: false
    readonly property bool takesKeyboard: false
    readonly property bool selectable: false
    /// The note's editor represents the row. RowOrder reads this.
    readonly property bool hiddenFromReaders: root.isNote

    signal activated()
    /// Return was pressed, which also activates the row.
    signal entered()
    signal edited(note: string)

    function enter(event: KeyEvent) {
        if (!event.isAutoRepeat) {
            root.entered();
        }
    }

    Accessible.ignored: root.hiddenFromReaders
    Accessible.name: root.label
    Accessible.role: root.isTitle ? Accessible.Heading : Accessible.ListItem
    Accessible.selectable: !root.isTitle
    Accessible.selected: root.first || root.activeFocus
    height: root.isTitle ? (root.index > 0 ? 36 : 24) : root.isNote ? 70 : Math.max(34, words.implicitHeight + 16)
    visible: !root.pooled
    width: ListView.view?.width ?? 0

    ListView.onPooled: root.pooled = true
    ListView.onReused: root.pooled = false

    GroupHeader {
        Accessible.ignored: true
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 5
        anchors.left: parent.left
        anchors.leftMargin: 12
        text: root.label
        visible: root.isTitle
    }
    PressButton {
        id: button

        anchors.fill: parent
        focusInset: 1
        focusRadius: 8
        label: root.label
        pressedScale: 1
        subject: root.isApp || root.kind === "held" ? qsTr("Open") : qsTr("Copy")
        visible: !root.isTitle && !root.isNote

        Keys.onEnterPressed: event => root.enter(event)
        Keys.onReturnPressed: event => root.enter(event)
        onActivated: root.activated()

        RoundedRect {
            anchors.fill: parent
            color: Qt.rgba(1, 1, 1, button.activeFocus ? 0.1 : button.containsMouse ? 0.075 : root.first ? 0.05 : 0)
            radius: 8
        }
        ApplicationPicture {
            anchors.left: parent.left
            anchors.leftMargin: 12
            anchors.verticalCenter: parent.verticalCenter
            height: 22
            path: root.isApp ? root.target ?? "" : ""
            visible: root.isApp
            width: 22
        }
        Symbol {
            anchors.horizontalCenter: parent.left
            anchors.horizontalCenterOffset: 23
            anchors.verticalCenter: parent.verticalCenter
            color: Theme.grey
            name: root.symbols[root.kind] ?? ""
            size: 14
        }
        ItemPicture {
            anchors.left: parent.left
            anchors.leftMargin: 12
            anchors.verticalCenter: parent.verticalCenter
            height: 22
            tools: root.tools
            // With `?? ""` the compiled binding loses a URL.
            url: root.kind === "held" && root.target ? root.target : ""
            visible: root.kind === "held"
            width: 22
        }
        Label {
            id: words

            Accessible.ignored: true
            anchors.left: parent.left
            anchors.leftMargin: 44
            anchors.right: parent.right
            anchors.rightMargin: 12
            anchors.verticalCenter: parent.verticalCenter
            elide: root.kind === "held" ? Text.ElideMiddle : Text.ElideRight
            font.pixelSize: 13
            maximumLineCount: root.kind === "clip" || root.kind === "snippet" ? 2 : 1
            text: root.isTitle || root.isNote ? "" : root.label
            wrapMode: words.maximumLineCount > 1 ? Text.Wrap : Text.NoWrap
        }
    }
    Loader {
        id: place

        anchors.fill: parent
        source: root.isNote ? "SearchNote.qml" : ""

        onLoaded: {
            const editor = place.item as SearchNote;
            editor.first = Qt.binding(() => root.first);
            editor.note = Qt.binding(() => root.label);
            editor.edited.connect(root.edited);
        }
    }
}
