import QtQuick
import Perchly.Stores

/// Back, play or pause, and forward. In a browser, back and forward seek, if possible.
Row {
    id: root

    required property ShelfModel model

    readonly property bool seeks: root.model.mediaIsBrowser

    spacing: 5

    PlaybackButton {
        symbol: root.seeks ? "gobackward.15" : "backward.end.fill"
        toolTip: root.seeks ? qsTr("Rewind 15 seconds") : qsTr("Previous track")
        usable: !root.seeks || root.model.mediaCanSeek
        onActivated: root.model.control(root.seeks ? "rewind" : "previous track")
    }
    PlaybackButton {
        symbol: root.model.playing ? "pause.fill" : "play.fill"
        toolTip: root.model.playing ? qsTr("Pause") : qsTr("Play")
        onActivated: root.model.control("playpause")
    }
    PlaybackButton {
        symbol: root.seeks ? "goforward.15" : "forward.end.fill"
        toolTip: root.seeks ? qsTr("Forward 15 seconds") : qsTr("Next track")
        usable: !root.seeks || root.model.mediaCanSeek
        onActivated: root.model.control(root.seeks ? "forward" : "next track")
    }
}
