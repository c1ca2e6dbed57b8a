import QtQuick

/// The shelf's geometry in its panel: collapsed, open and in between. Rectangles are in the panel's
/// coordinates; natural lengths are those of the open shelf before scaling.
QtObject {
    id: root

    required property string edge
    required property real panelWidth
    required property real panelHeight
    required property real shadowMargin
    required property rect compactRect
    required property size compactSize
    required property real contentHeight
    required property real wantedScale
    required property real openness

    readonly property real band: 34
    readonly property real rowsWidth: 660
    readonly property real restRadius: 17
    readonly property real openRadius: 28 * root.scale

    readonly property bool onSide: root.edge !== "top"
    readonly property real bandLeft: root.edge === "left" ? root.band : 0
    readonly property real headerHeight: root.onSide ? 34 : root.compactSize.height
    readonly property real naturalWidth: root.rowsWidth + (root.onSide ? root.band : 0)
    readonly property real naturalHeight: root.contentHeight

    /// The panel without the shadow margin.
    readonly property rect frame: {
        const left = root.edge === "left" ? 0 : root.shadowMargin;
        const right = root.edge === "right" ? 0 : root.shadowMargin;
        const top = root.onSide ? root.shadowMargin : 0;
        return Qt.rect(left, top, Math.max(0, root.panelWidth - left - right),
                       Math.max(0, root.panelHeight - top - root.shadowMargin));
    }

    readonly property rect restRect: root.compactRect.width > 0 ? root.compactRect : root.docked(root.compactSize.width, root.compactSize.height)

    /// The user's scale, or the largest smaller one with which the open shelf fits the panel.
    /// Rounding to whole pixels may make the panel up to a point smaller.
    readonly property real scale: {
        const room = Math.min((root.frame.width + 0.99) / root.naturalWidth, (root.frame.height + 0.99) / Math.max(1, root.naturalHeight));
        return root.openness > 0 ? Math.min(root.wantedScale, room) : root.wantedScale;
    }

    readonly property rect openRect: {
        const width = Math.min(Math.round(root.naturalWidth * root.scale), Math.ceil(Math.max(root.frame.width, root.restRect.width)));
        const height = Math.min(Math.round(root.naturalHeight * root.scale), Math.ceil(Math.max(root.frame.height, root.restRect.height)));
        const place = root.docked(width, height);
        if (root.onSide) {
            // Opens around the strip, as far as the display allows.
            const middle = root.restRect.y + root.restRect.height / 2 - height / 2;
            const last = root.frame.y + root.frame.height - height;
            place.y = Math.round(Math.max(root.frame.y, Math.min(middle, last)));
        }
        return place;
    }

    readonly property rect outline: Qt.rect(
        root.between(root.restRect.x, root.openRect.x),
        root.between(root.restRect.y, root.openRect.y),
        root.between(root.restRect.width, root.openRect.width),
        root.between(root.restRect.height, root.openRect.height))
    readonly property real radius: root.between(root.restRadius, root.openRadius)

    function between(rest: real, open: real): real {
        return rest + (open - rest) * root.openness;
    }

    /// A rectangle of that size, centred on the docked side.
    function docked(width: real, height: real): rect {
        const x = root.edge === "left" ? root.frame.x : root.edge === "right" ? root.frame.x + root.frame.width - width : root.frame.x + (root.frame.width - width) / 2;
        const y = root.onSide ? root.frame.y + (root.frame.height - height) / 2 : root.frame.y;
        return Qt.rect(Math.round(x), Math.round(y), width, height);
    }

    /// A rectangle in natural lengths, relative to the open shelf's top left corner.
    function onStage(x: real, y: real, width: real, height: real): rect {
        return Qt.rect(root.openRect.x + x * root.scale, root.openRect.y + y * root.scale, width * root.scale, height * root.scale);
    }
}
