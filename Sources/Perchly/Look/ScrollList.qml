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
    /// How far beyond what is shown rows are kept ready, in points.
    property alias cacheBuffer: view.cacheBuffer
    readonly property alias view: view

    // These functions name no types: what the toolkit compiles them to ahead of time then reads
    // through items that are not there.

    /// The row's index that has the keyboard, or -1.
    function focusedRow() {
        const row = root.rowOf(root.Window.activeFocusItem);
        return row ? view.indexAt(row.x, row.y + row.height / 2) : -1;
    }

    /// Gives the keyboard to the control at that position in the row, or to the next one to it that
    /// takes it; false if there is none.
    function focusRow(index, position) {
        const at = Math.max(0, Math.min(view.count - 1, index));
        view.positionViewAtIndex(at, ListView.Contain);
        view.forceLayout();
        const row = view.itemAtIndex(at);
        const controls = row ? root.controlsOf(row) : [];
        const before = controls.slice(0, position + 1).reverse();
        const found = before.concat(controls.slice(position + 1)).find(control => control.enabled);
        if (found) {
            found.forceActiveFocus(Qt.TabFocusReason);
        }
        return Boolean(found);
    }

    /// As focusRow, in the first row from that one on, in steps of 1 or -1, that has such a control.
    function focusFrom(index, step, position) {
        for (let row = index; row >= 0 && row < view.count; row += step) {
            if (root.focusRow(row, position)) {
                return true;
            }
        }
        return false;
    }

    /// Where the control with the keyboard stands among those of its row, or -1.
    function focusedControl() {
        const row = root.rowOf(root.Window.activeFocusItem);
        return row ? root.controlsOf(row).indexOf(root.Window.activeFocusItem) : -1;
    }

    function rowOf(item) {
        let at = item;
        while (at && at.parent !== view.contentItem) {
            at = at.parent;
        }
        return at;
    }

    /// The row's controls, also those that are disabled now, so that positions stay the same.
    function controlsOf(item) {
        const found = [];
        for (let place = 0; place < item.children.length; ++place) {
            const child = item.children[place];
            if (child.visible && (child instanceof PressButton || child instanceof ValueSlider)) {
                found.push(child);
            } else if (child.visible && child instanceof NoteEditor) {
                found.push(child.edit);
            } else if (child.visible) {
                found.push(...root.controlsOf(child));
            }
        }
        return found;
    }

    function step(event, distance) {
        const row = root.focusedRow();
        event.accepted = row >= 0 && root.focusFrom(row + distance, distance, root.focusedControl());
    }

    Accessible.name: root.label
    Accessible.role: Accessible.List
    // Not the height of all rows: a layout would give it that for a moment, and all would be made.
    implicitHeight: 120

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
