pragma ComponentBehavior: Bound

import QtQuick
import Perchly.Look

/// Lets the user choose the widget on one side.
Column {
    id: root

    required property string side
    required property string current

    signal chosen(string side, string widget)

    spacing: 1

    Repeater {
        model: WidgetLook.titles

        ChoiceRow {
            required property string modelData

            chosen: root.current === modelData
            symbol: WidgetLook.symbol(modelData)
            text: WidgetLook.name(modelData)
            width: root.width
            onActivated: root.chosen(root.side, modelData)
        }
    }
}
