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
