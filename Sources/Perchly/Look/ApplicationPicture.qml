import QtQuick
import Perchly.Look

/// The picture of an application, which is read on another thread; a generic one if it has none,
/// or is uninstalled. It is square.
Item {
    id: root

    /// Of its desktop entry; empty shows the generic picture.
    required property string path
    /// Pixels of the screen for one point here.
    property real pictureScale: Screen.devicePixelRatio

    Image {
        id: picture

        readonly property int pixels: Math.ceil(root.width * root.pictureScale)
        readonly property bool found: picture.status === Image.Ready && picture.implicitWidth > 1

        anchors.fill: parent
        asynchronous: true
        fillMode: Image.PreserveAspectFit
        mipmap: true
        source: root.path !== "" ? "image://applications/" + encodeURIComponent(root.path) : ""
        sourceSize.height: picture.pixels
        sourceSize.width: picture.pixels
        visible: picture.found
    }
    Rectangle {
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
