import QtQuick
import Perchly.Look

/// The square picture of an application, read on another thread; a generic one if the application
/// has none or is uninstalled.
Item {
    id: root

    /// The desktop entry's path; empty shows the generic picture.
    required property string path
    /// Screen pixels per point.
    property real pictureScale: Screen.devicePixelRatio

    Image {
        id: picture

        readonly property int pixels: Math.ceil(root.width * root.pictureScale)
        readonly property bool found: picture.status === Image.Ready && picture.implicitWidth > 1

        anchors.fill: parent
        asynchronous: true
        fillMode: Image.PreserveAspectFit
        mipmap: true
        source: root.path !== "" ? "image://applications/" + encodeURIComponent(Theme.iconTheme) + "/" + encodeURIComponent(root.path) : ""
        sourceSize.height: picture.pixels
        sourceSize.width: picture.pixels
        visible: picture.found
    }
    RoundedRect {
        anchors.fill: parent
        anchors.margins: root.width * 0.06
        color: Qt.rgba(1, 1, 1, 0.06)
        radius: root.width * 0.22
        visible: picture.status === Image.Loading
    }
    Image {
        anchors.centerIn: parent
        source: visible ? "qrc:/perchly/pictures/app-dashed.png" : ""
        sourceSize.width: Math.round(width * root.pictureScale)
        visible: !picture.found && picture.status !== Image.Loading
        width: Math.round(root.width * 0.725)
        height: width
    }
}
