import QtQuick

/// How a button goes down and comes up again.
NumberAnimation {
    duration: 140
    easing.type: Easing.OutCubic
}
