import QtQuick
import Perchly.Look
import Perchly.Stores

/// The global chords.
FormGroup {
    id: root

    required property ShelfHotKey hotKey

    signal told(words: Item)

    ChordRow {
        chord: root.hotKey.toggleText
        failure: root.hotKey.toggleFailure
        hotKey: root.hotKey
        isDefault: root.hotKey.toggleIsDefault
        text: qsTr("Toggle shelf")
        use: ShelfHotKey.Toggle

        onTold: words => root.told(words)
    }
    ChordRow {
        chord: root.hotKey.searchText
        failure: root.hotKey.searchFailure
        hotKey: root.hotKey
        isDefault: root.hotKey.searchIsDefault
        text: qsTr("Open search")
        use: ShelfHotKey.Search

        onTold: words => root.told(words)
    }
}
