import QtQuick
import Perchly.Look

/// The square picture of a shelf entry in lists. Empty if `kind` is.
Item {
    id: root

    /// "widget", "shortcut", "application" or empty.
    required property string kind
    /// The widget's title, if it is a widget.
    property string widget: ""
    /// The desktop entry's path, if it is an application.
    property string path: ""

    readonly property color tint: WidgetLook.color(root.widget)

    implicitHeight: 38
    implicitWidth: 38

    RoundedRect {
        anchors.fill: parent
        bottomColor: root.tint
        color: Qt.lighter(root.tint, 1.18)
        radius: 10
        visible: root.kind === "widget"
    }
    Symbol {
        anchors.centerIn: parent
        bold: root.kind === "widget"
        color: root.kind === "widget" ? "white" : Theme.purple
        name: root.kind === "widget" ? WidgetLook.symbol(root.widget) : root.kind === "shortcut" ? "square.stack.3d.up.fill" : ""
        size: 20
    }
    ApplicationPicture {
        anchors.fill: parent
        path: root.path
        visible: root.kind === "application"
    }
}
