import QtQuick
import Perchly.Look

/// A symbol by its name, centred in a square of its own; nothing while the name is empty.
Item {
    id: root

    required property string name
    /// As a type size: a symbol stands as high as capitals of that size with some air.
    property real size: 13
    property color color: Theme.text
    property bool bold: false

    readonly property string glyph: root.name !== "" ? SymbolTable.glyphText(root.name) : ""

    implicitHeight: Math.round(root.size * 1.25)
    implicitWidth: implicitHeight

    Text {
        anchors.centerIn: parent
        color: root.color
        font.bold: root.bold
        font.family: SymbolTable.family
        font.pixelSize: root.implicitHeight
        text: root.glyph
        textFormat: Text.PlainText
    }

    Loader {
        active: root.glyph === "" && root.name !== ""
        anchors.centerIn: parent
        height: root.implicitHeight
        source: active ? "OutlineSymbol.qml" : ""
        width: root.implicitWidth

        onLoaded: {
            const drawn = item as DrawnSymbol;
            drawn.color = Qt.binding(() => root.color);
            drawn.name = Qt.binding(() => root.name);
        }
    }
}
