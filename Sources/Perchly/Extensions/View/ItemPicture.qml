import QtQuick
import Perchly.Look
import Perchly.Stores
import Perchly.Extensions

/// The square picture of a held file or link: a symbol if there is no other picture.
Item {
    id: root

    required property Productivity tools
    required property url url
    property color color: Theme.grey

    readonly property bool isFile: String(root.url).startsWith("file:")

    FilePicture {
        id: picture

        anchors.fill: parent
        tools: root.tools
        url: root.url
    }
    Symbol {
        anchors.centerIn: parent
        color: root.color
        name: root.isFile ? "doc" : "link"
        size: 14
        visible: !picture.found
    }
}
