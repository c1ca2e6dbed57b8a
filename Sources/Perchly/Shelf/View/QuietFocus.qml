import QtQuick
import Perchly.Look

/// Replaces the strip during a quiet focus session.
Column {
    topPadding: (120 - 26 - 8 - 18 - 4 - 14) / 2

    Symbol {
        anchors.horizontalCenter: parent.horizontalCenter
        color: Theme.shelfAccent
        name: "moon.stars.fill"
        size: 21
    }
    Item {
        height: 8
        width: 1
    }
    SpokenLabel {
        font.pixelSize: 14
        font.weight: Font.DemiBold
        height: 18
        horizontalAlignment: Text.AlignHCenter
        text: qsTr("Room to focus")
        width: parent.width
    }
    Item {
        height: 4
        width: 1
    }
    SpokenLabel {
        color: Theme.shelfGrey
        font.pixelSize: 11
        height: 14
        horizontalAlignment: Text.AlignHCenter
        text: qsTr("Your apps and widgets return when you leave focus mode.")
        width: parent.width
    }
}
