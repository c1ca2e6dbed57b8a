import QtQuick
import Perchly.Look

/// A symbol by its name, centred in a square; empty if the name is.
Item {
    id: root

    required property string name
    /// As a font size: a symbol is slightly higher than capitals of that size.
    property real size: 13
    property color color: Theme.text
    property bool bold: false

    implicitHeight: Math.round(root.size * 1.25)
    implicitWidth: implicitHeight

    Text {
        anchors.centerIn: parent
        color: root.color
        font.bold: root.bold
        font.family: SymbolTable.family
        font.pixelSize: root.implicitHeight
        text: root.name !== "" ? SymbolTable.glyphText(root.name) : ""
        textFormat: Text.PlainText
    }
}
