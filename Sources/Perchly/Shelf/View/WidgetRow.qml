pragma ComponentBehavior: Bound

import QtQuick
import Perchly.Look

/// The row of cards: a pinned widget at each end and the activity between them.
Item {
    id: root

    readonly property real cardWidth: Math.ceil((root.width - 24) / 3)

    Repeater {
        model: [0, root.cardWidth + 12, root.width - root.cardWidth]

        RoundedRect {
            required property real modelData
            required property int index

            color: Theme.card
            height: root.height
            radius: 18
            width: index === 1 ? root.width - 2 * root.cardWidth - 24 : root.cardWidth
            x: modelData
        }
    }
}
