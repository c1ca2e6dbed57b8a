import QtQuick
import Perchly.Look
import Perchly.Stores

/// Lets the user choose the side to pin a widget on.
Column {
    id: root

    required property ShelfModel model
    required property string widget

    /// A side was chosen.
    signal chosen(string side, string widget)

    spacing: 2

    SpokenLabel {
        bottomPadding: 4
        font.pixelSize: 12
        font.weight: Font.DemiBold
        leftPadding: 8
        text: WidgetLook.name(root.widget)
        topPadding: 3
        width: parent.width
    }
    ChoiceRow {
        chosen: root.model.left === root.widget
        symbol: "sidebar.left"
        text: qsTr("Pin on left")
        width: parent.width
        onActivated: root.chosen("left", root.widget)
    }
    ChoiceRow {
        chosen: root.model.right === root.widget
        symbol: "sidebar.right"
        text: qsTr("Pin on right")
        width: parent.width
        onActivated: root.chosen("right", root.widget)
    }
}
