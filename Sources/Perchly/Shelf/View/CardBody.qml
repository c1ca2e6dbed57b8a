import QtQuick
import Perchly.Stores
import Perchly.Shelf

/// What every card's content is given.
Item {
    required property ShelfModel model
    required property ShelfPreferences preferences
    required property ShelfExtras extras
    required property ShellActions shell
    required property CompactStatus status
}
