import QtQuick
import Perchly.Look
import Perchly.Stores

/// How long the pointer must stay on the shelf until it opens.
SliderRow {
    id: root

    required property ShelfPreferences preferences

    current: root.preferences.openingDelay
    from: 0
    stepSize: 0.05
    text: qsTr("Opening delay")
    to: 0.5
    valueText: qsTr("%1 ms").arg(Math.round(root.preferences.openingDelay * 1000))

    onAsked: value => root.preferences.openingDelay = value
}
