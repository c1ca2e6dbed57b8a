import QtQuick
import Perchly.Look
import Perchly.Stores

/// Shows one chooser at a time above the open shelf, beside its anchor item. The shelf does not
/// close meanwhile. Escape, a press elsewhere, the activation of another window, the closing of the
/// shelf, or the removal of the anchor closes the chooser.
FocusScope {
    id: root

    required property ShelfModel model
    required property ShelfPreferences preferences
    required property ShellActions shell

    /// The item to which the chooser is attached; null while closed.
    property Item anchorItem: null
    readonly property bool open: root.anchorItem !== null
    /// The widget whose side is being chosen, or empty.
    property string selectedWidget: ""

    property rect anchorRect: Qt.rect(0, 0, 0, 0)
    property Item returnTo: null
    property bool presented: false
    property bool borrowed: false
    property real cardWidth: 0
    readonly property real margin: 10
    readonly property bool above: root.anchorRect.y + root.anchorRect.height + 8 + card.height > root.height - root.margin

    function rows(): var {
        const children = chooser.item ? (chooser.item as Item).children : [];
        const found = [];
        for (let index = 0; index < children.length; ++index) {
            if (children[index] instanceof ChoiceRow) {
                found.push(children[index]);
            }
        }
        return found;
    }

    /// Moves the keyboard by that many choices.
    function step(by: int) {
        const rows = root.rows();
        const now = rows.findIndex(row => row.activeFocus);
        const next = now < 0 ? (by > 0 ? 0 : rows.length - 1) : (now + by + rows.length) % rows.length;
        rows[next]?.forceActiveFocus(Qt.TabFocusReason);
    }

    function chooseWidget(anchor: Item, side: string, current: string) {
        chooser.setSource("WidgetMenu.qml", { side: side, current: current });
        root.present(anchor, 176, anchor.activeFocus);
    }

    function choosePin(anchor: Item, widget: string, byKey: bool) {
        chooser.setSource("PinPopover.qml", { model: root.model, widget: widget });
        root.selectedWidget = widget;
        root.present(anchor, 210, byKey);
    }

    function pin(side: string, widget: string) {
        if (side === "left") {
            root.model.setLeftTitle(widget);
            root.preferences.savedLeft = widget;
        } else {
            root.model.setRightTitle(widget);
            root.preferences.savedRight = widget;
        }
    }

    function present(anchor: Item, width: real, byKey: bool) {
        root.returnTo = root.Window.activeFocusItem;
        const chosenByKey = byKey && root.Window.active;
        root.presented = true;
        root.anchorItem = anchor;
        root.cardWidth = width;
        const corner = root.mapFromItem(anchor, 0, 0);
        root.anchorRect = Qt.rect(corner.x, corner.y, anchor.width, anchor.height);
        root.model.setChoosingWidget(true);
        root.borrowed = root.shell.takeKeyboard();
        root.forceActiveFocus();
        if (chosenByKey) {
            (root.rows().find(row => row.chosen) ?? root.rows()[0])?.forceActiveFocus(Qt.TabFocusReason);
        }
        if (!Theme.reduceMotion) {
            arrival.restart();
        }
    }

    function close() {
        if (!root.presented) {
            return;
        }
        root.presented = false;
        root.anchorItem = null;
        root.selectedWidget = "";
        root.focus = false;
        if (root.returnTo !== null) {
            root.returnTo.forceActiveFocus();
        }
        root.returnTo = null;
        chooser.setSource("");
        root.model.setChoosingWidget(false);
        if (root.borrowed) {
            root.borrowed = false;
            root.shell.returnKeyboard();
        }
    }

    visible: root.open

    onAnchorItemChanged: {
        // The anchor was removed.
        if (root.anchorItem === null) {
            root.close();
        }
    }

    Component.onDestruction: root.close()
    Keys.onBacktabPressed: root.step(-1)
    Keys.onDownPressed: root.step(1)
    Keys.onEscapePressed: root.close()
    Keys.onPressed: event => {
        if (event.key === Qt.Key_Home || event.key === Qt.Key_End) {
            event.accepted = true;
            root.rows().at(event.key === Qt.Key_Home ? 0 : -1)?.forceActiveFocus(Qt.TabFocusReason);
        }
    }
    Keys.onTabPressed: root.step(1)
    Keys.onUpPressed: root.step(-1)

    Connections {
        target: root.model

        function onDraggingChanged() {
            root.close();
        }
        function onExpandedChanged() {
            root.close();
        }
    }
    Connections {
        target: root.Window.window

        function onActiveChanged() {
            if (!root.Window.active) {
                root.close();
            }
        }
    }
    Connections {
        ignoreUnknownSignals: true
        target: chooser.item

        function onChosen(side: string, widget: string) {
            root.pin(side, widget);
            root.close();
        }
    }

    MouseArea {
        acceptedButtons: Qt.AllButtons
        anchors.fill: parent
        hoverEnabled: true
        onPressed: root.close()
        onWheel: wheel => wheel.accepted = true
    }

    Item {
        id: card

        Accessible.name: root.selectedWidget !== "" ? qsTr("Pin %1").arg(WidgetLook.name(root.selectedWidget)) : qsTr("Change pinned widget")
        Accessible.role: Accessible.PopupMenu
        height: (chooser.item ? (chooser.item as Item).implicitHeight : 0) + 12
        width: root.cardWidth
        x: Math.round(Math.max(root.margin, Math.min(root.anchorRect.x + root.anchorRect.width / 2 - card.width / 2, root.width - root.margin - card.width)))
        y: Math.round(root.above ? root.anchorRect.y - 8 - card.height : root.anchorRect.y + root.anchorRect.height + 8)
        transformOrigin: root.above ? Item.Bottom : Item.Top

        SoftShadow {
            radius: 12
            spread: 18
        }
        RoundedRect {
            borderColor: Qt.rgba(1, 1, 1, 0.12)
            borderWidth: 1
            color: Theme.floating
            height: 10
            rotation: 45
            width: 10
            x: Math.max(14, Math.min(root.anchorRect.x + root.anchorRect.width / 2 - card.x - 5, card.width - 24))
            y: root.above ? card.height - 6 : -4
        }
        RoundedRect {
            anchors.fill: parent
            borderColor: Qt.rgba(1, 1, 1, 0.12)
            borderWidth: 1
            color: Theme.floating
            radius: 12
        }
        // Covers the border between arrow and card.
        Rectangle {
            color: Theme.floating
            height: 2
            width: 11
            x: Math.max(14, Math.min(root.anchorRect.x + root.anchorRect.width / 2 - card.x - 5, card.width - 24)) - 0.5
            y: root.above ? card.height - 2 : 0
        }
        MouseArea {
            anchors.fill: parent
        }
        Loader {
            id: chooser

            x: 6
            y: 6
            width: card.width - 12
        }
    }

    ParallelAnimation {
        id: arrival

        NumberAnimation { duration: 120; easing.type: Easing.OutCubic; from: 0.94; property: "scale"; target: card; to: 1 }
        NumberAnimation { duration: 120; easing.type: Easing.OutCubic; from: 0; property: "opacity"; target: card; to: 1 }
    }
}
