import QtQuick
import Perchly.Look
import Perchly.Stores

/// The global chords.
FormGroup {
    id: root

    required property ShelfHotKey hotKey

    ChordRow {
        chord: root.hotKey.toggleText
        failure: root.hotKey.toggleFailure
        hotKey: root.hotKey
        isDefault: root.hotKey.toggleIsDefault
        text: qsTr("Toggle shelf")
        use: ShelfHotKey.Toggle
    }
    ChordRow {
        chord: root.hotKey.searchText
        failure: root.hotKey.searchFailure
        hotKey: root.hotKey
        isDefault: root.hotKey.searchIsDefault
        text: qsTr("Open search")
        use: ShelfHotKey.Search
    }
}
