import QtQuick
import Perchly.Look

/// Form rows in a column on one plate.
RoundedRect {
    id: root

    property int padding: 12
    default property alias rows: column.data

    color: Theme.row
    implicitHeight: Math.ceil(column.implicitHeight) + 2 * root.padding
    radius: 12

    Column {
        id: column

        anchors.left: parent.left
        anchors.margins: root.padding
        anchors.right: parent.right
        anchors.top: parent.top
        spacing: 10
    }
}
