import QtQuick
import Perchly.Stores
import Perchly.Shelf

/// Properties that all cards' contents share.
Item {
    required property ShelfModel model
    required property ShelfPreferences preferences
    required property ShelfExtras extras
    required property ShellActions shell
    required property CompactStatus status
}
