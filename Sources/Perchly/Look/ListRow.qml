import QtQuick
import QtQuick.Layouts
import Perchly.Look

/// A row of a ScrollList with a text and, at its end, buttons.
RowCard {
    id: root

    property string text: ""
    /// Small secondary text below the text.
    property string detail: ""
    property alias label: label
    property int minContentHeight: 0
    /// Items before the text.
    property alias leading: leading.data
    /// Items below the text.
    property alias below: words.data
    default property alias buttons: buttons.data

    Accessible.name: root.text
    Accessible.role: Accessible.ListItem

    content: RowLayout {
        height: Math.max(implicitHeight, root.minContentHeight)
        spacing: 0
        width: parent.width

        RowLayout {
            id: leading

            Layout.fillWidth: false
        }
        ColumnLayout {
            id: words

            Layout.leftMargin: leading.implicitWidth > 0 ? 8 : 0
            Layout.rightMargin: 8
            spacing: 3

            Label {
                id: label

                Accessible.ignored: true
                Layout.fillWidth: true
                font.pixelSize: 13
                maximumLineCount: 3
                text: root.text
            }
            CaptionText {
                Layout.fillWidth: true
                color: Theme.grey
                maximumLineCount: 3
                text: root.detail
                visible: root.detail !== ""
            }
        }
        RowLayout {
            id: buttons

            Layout.fillWidth: false
            spacing: 8
        }
    }
}
