import QtQuick
import Perchly.Look

/// A scrollable column whose children are as wide as the area.
Item {
    id: root

    property alias spacing: column.spacing
    default property alias content: column.data

    /// Scrolls to an item inside, once it is laid out.
    function reveal(item: Item) {
        revealing.item = item;
        revealing.restart();
    }

    implicitHeight: column.implicitHeight
    implicitWidth: column.implicitWidth

    Keys.onPressed: event => scroller.page(event)

    Flickable {
        id: view

        anchors.fill: parent
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        contentHeight: column.implicitHeight
        contentWidth: view.width
        interactive: false

        onContentHeightChanged: {
            if (revealing.item) {
                scroller.reveal(revealing.item);
            }
        }
        onHeightChanged: scroller.scrollBy(0)

        Column {
            id: column

            width: view.width
        }
    }
    Timer {
        id: revealing

        property Item item: null

        interval: 100
        onTriggered: {
            scroller.reveal(revealing.item);
            revealing.item = null;
        }
    }
    Scroller {
        id: scroller

        view: view
    }
}
