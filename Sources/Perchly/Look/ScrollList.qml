import QtQuick
import Perchly.Look

/// A list of rows that scrolls. The up and down arrows go from a control of one row to the same one
/// of its neighbour; Tab goes through all.
Item {
    id: root

    /// What assistive programs call it.
    required property string label
    property alias model: view.model
    property alias delegate: view.delegate
    property alias spacing: view.spacing
    property alias count: view.count
    property alias reuseItems: view.reuseItems
    readonly property alias view: view

    /// The row's index that has the keyboard, or -1.
    function focusedRow(): int {
        const row = root.rowOf(root.Window.activeFocusItem);
        return row ? view.indexAt(row.x, row.y + row.height / 2) : -1;
    }

    /// Gives the keyboard to the control at that position in the row, or to the last one before it
    /// that takes it.
    function focusRow(index: int, position: int) {
        if (view.count === 0) {
            return;
        }
        const at = Math.max(0, Math.min(view.count - 1, index));
        view.positionViewAtIndex(at, ListView.Contain);
        view.forceLayout();
        const row = view.itemAtIndex(at);
        const controls = row ? root.controlsOf(row) : [];
        for (let next = Math.min(position, controls.length - 1); next >= 0; --next) {
            if (controls[next].enabled) {
                controls[next].forceActiveFocus(Qt.TabFocusReason);
                return;
            }
        }
        const first = controls.find(control => control.enabled);
        if (first) {
            first.forceActiveFocus(Qt.TabFocusReason);
        }
    }

    /// Where the control with the keyboard stands among those of its row, or -1.
    function focusedControl(): int {
        const row = root.rowOf(root.Window.activeFocusItem);
        return row ? root.controlsOf(row).indexOf(root.Window.activeFocusItem) : -1;
    }

    function rowOf(item: Item): Item {
        let at = item;
        while (at && at.parent !== view.contentItem) {
            at = at.parent;
        }
        return at;
    }

    /// The row's controls, also those that are disabled now, so that positions stay the same.
    function controlsOf(item: Item): list<Item> {
        const found = [];
        for (const child of item.children) {
            if (child.visible) {
                if (child instanceof PressButton || child instanceof ValueSlider) {
                    found.push(child);
                } else {
                    found.push(...root.controlsOf(child));
                }
            }
        }
        return found;
    }

    function step(event: var, distance: int) {
        const row = root.focusedRow();
        event.accepted = row >= 0;
        if (event.accepted && row + distance >= 0 && row + distance < view.count) {
            root.focusRow(row + distance, root.focusedControl());
        }
    }

    Accessible.name: root.label
    Accessible.role: Accessible.List
    implicitHeight: view.contentHeight

    Keys.onDownPressed: event => root.step(event, 1)
    Keys.onPressed: event => scroller.page(event)
    Keys.onUpPressed: event => root.step(event, -1)

    ListView {
        id: view

        anchors.fill: parent
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        interactive: false
        keyNavigationEnabled: false
        spacing: 8
    }
    Scroller {
        id: scroller

        view: view
    }
}
