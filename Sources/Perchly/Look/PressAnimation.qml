import QtQuick

/// Animates a button's press and release.
NumberAnimation {
    duration: 140
    easing.type: Easing.OutCubic
}
