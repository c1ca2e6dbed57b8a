import QtQuick
import Perchly.Look

/// Rows of a form on one plate, from top to bottom.
RowCard {
    id: root

    default property alias rows: column.data

    padding: 14

    Column {
        id: column

        spacing: 10
        width: parent.width
    }
}
