import QtQuick
import Perchly.Look

/// The plate of one row of a list. What is put inside gives it its height.
Item {
    id: root

    /// In a list, the row itself has the keyboard when none of its controls takes it.
    property bool takesKeyboard: true
    /// It can have the keyboard beside its controls, too.
    property bool selectable: false
    property int padding: 10
    property alias radius: plate.radius
    property alias color: plate.color
    default property alias content: body.data

    implicitHeight: Math.ceil(body.childrenRect.height) + 2 * root.padding

    RoundedRect {
        id: plate

        anchors.fill: parent
        color: Theme.row
        radius: 12
    }
    Item {
        id: body

        anchors.fill: parent
        anchors.margins: root.padding
    }
    FocusRing {
        radius: plate.radius
        shown: root.activeFocus
    }
}
