import QtQuick
import Perchly.Look
import Perchly.Stores
import Perchly.Shelf

/// The whole content of the shelf's panel: the pill at the top of the display or the strip at its
/// side, and the open shelf.
///
/// The panel is larger than the drawn shelf: by `shadowMargin` on every side but the display's
/// edge, and, from just before the shelf opens until it has closed, by the space of the open shelf.
/// The outline moves between `restRect` and `openRect`. `shapeRect` and `shapeRadius` give the
/// panel the outline at rest, for its mask and its input region.
FocusScope {
    id: root

    required property ShelfModel model
    required property ShelfPreferences preferences
    required property ShelfLibrary library
    required property Productivity productivity
    required property ShelfExtras extras
    required property ShellActions shell
    required property Motion motion
    required property Appearance appearance

    /// Whether the panel's pixels may be translucent. If not, nothing is drawn outside the outline,
    /// and the shelf opens and closes without animation.
    property bool composited: true
    property real shadowMargin: 0
    /// The collapsed shelf's frame in the panel's coordinates. If empty, the middle of the docked
    /// side.
    property rect compactRect: Qt.rect(0, 0, 0, 0)

    readonly property bool expanded: root.model.expanded
    readonly property string edge: root.model.dockEdge
    readonly property bool onSide: root.edge !== "top"
    readonly property color accentColor: Theme.accentColor(root.preferences.accent)
    readonly property bool translucent: root.composited && !root.appearance.highContrast && root.preferences.opacity < 1
    readonly property color backgroundColor: Theme.backgroundColor(root.preferences.theme, root.translucent ? root.preferences.opacity : 1)
    readonly property color statusColor: root.model.running ? Theme.shelfOrange : Theme.shelfAccent

    readonly property alias layout: layout
    readonly property alias status: status
    readonly property alias openness: openness
    readonly property alias sideReveal: sideReveal
    /// Whether a chooser is open, which takes the next press wherever it is.
    readonly property bool choosing: root.content?.choosing ?? false
    /// The open shelf's content; null until it is created.
    readonly property ExpandedContent content: expandedContent.item as ExpandedContent
    readonly property rect shapeRect: root.expanded ? layout.openRect : layout.restRect
    readonly property real shapeRadius: root.expanded ? layout.openRadius : layout.restRadius
    /// Where the compositor may blur the screen behind the shelf: not beyond the outline, which moves.
    readonly property rect blurRect: !root.translucent ? Qt.rect(0, 0, 0, 0) : openness.value < 1 ? layout.restRect : layout.openRect

    function reveal() {
        sideReveal.jumpTo(0);
        if (root.expanded && root.edge !== "top") {
            sideReveal.target = 1;
        }
    }

    focus: true

    Keys.onPressed: event => {
        if (!root.choosing) {
            const focused = root.Window.activeFocusItem;
            headerHandle.menu.pressByKey(event, focused === root ? headerHandle : focused);
        }
    }
    Component.onCompleted: {
        root.model.setLeftTitle(root.preferences.savedLeft);
        root.model.setRightTitle(root.preferences.savedRight);
        sideReveal.jumpTo(root.expanded && root.edge !== "top" ? 1 : 0);
    }
    onEdgeChanged: {
        root.reveal();
        edgeFade.jumpTo(0);
        edgeFade.target = 1;
    }
    onExpandedChanged: {
        // The whole collapsed shelf is its header.
        headerHandle.byChance = root.expanded && headerHandle.containsMouse;
        edgeHandle.byChance = headerHandle.byChance;
        root.reveal();
        if (!root.expanded) {
            root.forceActiveFocus(); // rather than on a hidden button
        }
    }

    Connections {
        target: root.model

        function onKeyboardOpenChanged() {
            if (root.model.keyboardOpen) {
                headerHandle.forceActiveFocus(Qt.OtherFocusReason);
            }
        }
    }
    Binding {
        property: "reduceMotion"
        target: Theme
        value: root.motion.reduced
    }
    Binding {
        property: "accent"
        target: Theme
        value: root.accentColor
    }
    Binding {
        property: "highContrast"
        target: Theme
        value: root.appearance.highContrast
    }
    Binding {
        property: "menuOpen"
        target: Theme
        value: root.model.choosingWidget
    }
    Binding {
        property: "iconTheme"
        target: Theme
        value: root.appearance.iconTheme
    }
    Binding {
        property: "shelf"
        target: Theme
        value: root.backgroundColor
    }

    CompactStatus {
        id: status

        model: root.model
        productivity: root.productivity
    }

    ShelfLayout {
        id: layout

        compactRect: root.compactRect
        compactSize: Qt.size(root.model.compactWidth, root.model.compactHeight)
        contentHeight: expandedContent.item ? (expandedContent.item as ExpandedContent).implicitHeight : 0
        edge: root.edge
        openness: openness.value
        panelHeight: root.height
        panelWidth: root.width
        shadowMargin: root.shadowMargin
        wantedScale: root.preferences.scale
    }

    SpringValue {
        id: openness

        // The panel of a dragged shelf is only as large as the pill, so it has no room for closing.
        // A capture must not show the shelf closing.
        animated: root.composited && !root.model.dragging && !root.extras.capture.active
        reduced: root.motion.reduced
        target: root.expanded ? 1 : 0
    }

    SpringValue {
        id: sideReveal

        animated: root.composited && !root.model.dragging
        reduced: root.motion.reduced
    }

    SpringValue {
        id: edgeFade

        animated: root.composited
        reduced: root.motion.reduced
        target: 1
    }

    ShelfOutline {
        color: root.backgroundColor
        edge: root.model.dragging ? "" : root.edge
        height: layout.outline.height
        highlight: dropArea.containsDrag ? root.accentColor : "transparent"
        openScale: layout.scale
        opened: openness.value > 0
        radius: layout.radius
        shadowed: root.composited
        width: layout.outline.width
        x: layout.outline.x
        y: layout.outline.y
    }

    Item {
        id: compactContent

        height: layout.restRect.height
        opacity: Math.max(0, 1 - 4 * openness.value) * edgeFade.value
        visible: openness.value < 0.25
        width: layout.restRect.width
        x: layout.restRect.x
        y: layout.restRect.y

        CompactTop {
            anchors.fill: parent
            notchWidth: root.model.hardwareNotchWidth
            status: status
            statusColor: root.statusColor
            visible: !root.onSide
        }
        CompactSide {
            anchors.fill: parent
            edge: root.edge
            status: status
            statusColor: root.statusColor
            visible: root.onSide
        }
    }

    // The content is in its final position from the start; the growing outline uncovers it.
    Item {
        id: window

        readonly property real shownWidth: root.onSide ? layout.openRect.width * sideReveal.value : layout.outline.width

        clip: true
        height: layout.outline.height
        visible: openness.value > 0 && window.width > 0
        width: Math.min(layout.outline.width, window.shownWidth)
        x: root.edge === "right" ? layout.outline.x + layout.outline.width - window.width : layout.outline.x
        y: layout.outline.y

        MenuArea {
            onAsked: (position, byKey) => root.shell.showMenu(position, byKey)
        }
        Loader {
            id: expandedContent

            active: root.expanded || openness.value > 0 || idle.passed
            height: layout.naturalHeight
            scale: layout.scale
            transformOrigin: Item.TopLeft
            width: layout.naturalWidth
            x: layout.openRect.x - window.x
            y: layout.openRect.y - window.y

            Component.onCompleted: expandedContent.setSource("ExpandedContent.qml", {
                extras: root.extras,
                library: root.library,
                model: root.model,
                preferences: root.preferences,
                productivity: root.productivity,
                shell: root.shell,
                status: status
            })
        }
        Binding {
            property: "appearance"
            target: expandedContent.item
            value: root.onSide ? 1 : openness.value
            when: expandedContent.item
        }
    }

    // The first opening must be as fast as later ones, so the content is created while idle.
    Timer {
        id: idle

        property bool passed: false

        interval: 600
        running: true
        onTriggered: idle.passed = true
    }

    DropArea {
        id: dropArea

        height: layout.outline.height
        width: layout.outline.width
        x: layout.outline.x
        y: layout.outline.y

        onDropped: drop => {
            if (drop.hasUrls) {
                if (!root.productivity.held.holdDropped(drop.getDataAsString("text/uri-list"))) {
                    root.productivity.held.hold(drop.urls); // given as URLs in another format
                }
                drop.accept(Qt.CopyAction);
            }
        }
        // Only references are kept, and a "move" would make the source delete its files.
        onEntered: drag => {
            if (drag.hasUrls) {
                drag.accept(Qt.CopyAction);
            } else {
                drag.accepted = false;
            }
        }
        onPositionChanged: drag => drag.accept(Qt.CopyAction)
    }

    DragHandle {
        id: edgeHandle

        Accessible.ignored: !root.onSide || !root.expanded
        activeFocusOnTab: false
        enabled: (root.onSide && !root.choosing) || edgeHandle.pressed
        height: root.shapeRect.height
        label: edgeHandle.toolTip
        shell: root.shell
        toolTip: root.onSide && root.expanded ? qsTr("Drag this edge to detach and reposition the shelf") : ""
        toolTipSide: root.edge === "left" ? Qt.RightEdge : Qt.LeftEdge
        width: Math.min(root.shapeRect.width, layout.band * layout.scale)
        x: root.edge === "right" ? root.shapeRect.x + root.shapeRect.width - width : root.shapeRect.x
        y: root.shapeRect.y
    }

    DragHandle {
        id: headerHandle

        enabled: !root.choosing || headerHandle.pressed
        Keys.enabled: root.expanded // the window manager may take a moment to return the keyboard
        readonly property rect openArea: layout.onStage(layout.bandLeft, 0, layout.rowsWidth, layout.headerHeight)
        readonly property rect area: root.expanded ? headerHandle.openArea : layout.restRect

        height: headerHandle.area.height
        label: status.sentence
        shell: root.shell
        toolTip: !root.expanded ? status.sentence : qsTr("Click to open · Drag to the top, left, or right edge")
        toolTipSide: !root.onSide || root.expanded ? Qt.BottomEdge : root.edge === "left" ? Qt.RightEdge : Qt.LeftEdge
        width: headerHandle.area.width
        x: headerHandle.area.x
        y: headerHandle.area.y
    }

    Loader {
        id: alert

        active: root.expanded && root.model.controlError !== ""
        height: layout.openRect.height
        width: layout.openRect.width
        x: layout.openRect.x
        y: layout.openRect.y

        Component.onCompleted: alert.setSource("ErrorAlert.qml", {
            model: root.model,
            preferences: root.preferences,
            radius: layout.openRadius,
            contentScale: layout.scale
        })

        Binding {
            property: "radius"
            target: alert.item
            value: layout.openRadius
            when: alert.item
        }
        Binding {
            property: "contentScale"
            target: alert.item
            value: layout.scale
            when: alert.item
        }
    }
}
