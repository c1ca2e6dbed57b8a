import QtQuick
import Perchly.Stores
import Perchly.Shelf

/// The row of cards: the pinned widgets at its ends and the activity between them.
Item {
    id: root

    required property ShelfModel model
    required property ShelfPreferences preferences
    required property ShelfExtras extras
    required property ShellActions shell
    required property CompactStatus status
    required property PopoverLayer popovers

    readonly property real cardWidth: Math.ceil((root.width - 24) / 3)

    PinnedCard {
        extras: root.extras
        height: root.height
        model: root.model
        popovers: root.popovers
        preferences: root.preferences
        shell: root.shell
        side: "left"
        status: root.status
        widget: root.model.left
        width: root.cardWidth
    }
    ActivityCard {
        height: root.height
        model: root.model
        preferences: root.preferences
        status: root.status
        width: root.width - 2 * root.cardWidth - 24
        x: root.cardWidth + 12
    }
    PinnedCard {
        extras: root.extras
        height: root.height
        model: root.model
        popovers: root.popovers
        preferences: root.preferences
        shell: root.shell
        side: "right"
        status: root.status
        widget: root.model.right
        width: root.cardWidth
        x: root.width - root.cardWidth
    }
}
