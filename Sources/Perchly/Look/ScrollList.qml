import QtQuick
import Perchly.Look

/// A list of rows that scrolls, and one stop for Tab: the arrows go from row to row and from a
/// control to its neighbour, Home and End to the ends, and the list remembers where the keyboard
/// was. In a row that needs the arrows for itself, Tab goes along the row before it leaves. A row
/// may take the keyboard itself: see `takesKeyboard` and `selectable` of RowCard.
Item {
    id: root

    /// What assistive programs call it.
    required property string label
    /// Shown while there are no rows.
    property string placeholder: ""
    property alias model: view.model
    property alias delegate: view.delegate
    property alias spacing: view.spacing
    property alias count: view.count
    property alias reuseItems: view.reuseItems
    /// How far beyond what is shown rows are kept ready, in points.
    property alias cacheBuffer: view.cacheBuffer
    readonly property alias view: view

    readonly property bool holdsKeyboard: Boolean(scroller.focused) && scroller.holds(scroller.focused)
    property int lastRow: 0
    property int lastControl: 0
    property var growing: null

    // These functions name no types: what the toolkit compiles them to ahead of time then reads
    // through items that are not there.

    /// The row's index that has the keyboard, or -1.
    function focusedRow() {
        const row = root.rowOf(root.Window.activeFocusItem);
        return row ? view.indexAt(row.x, row.y + row.height / 2) : -1;
    }

    /// Gives the keyboard to the control at that position in the row, or to the next one to it that
    /// takes it, or to the row itself, which is the position -1; false if none of them takes it.
    function focusRow(index, position) {
        if (view.count === 0) {
            return false;
        }
        const at = Math.max(0, Math.min(view.count - 1, index));
        view.positionViewAtIndex(at, ListView.Contain);
        view.forceLayout();
        const row = view.itemAtIndex(at);
        const found = row ? root.takerOf(row, position) : null;
        if (found) {
            found.forceActiveFocus(Qt.TabFocusReason);
        }
        return Boolean(found);
    }

    function takerOf(row, position) {
        if (position < 0 && row.selectable) {
            return row;
        }
        const controls = root.controlsOf(row);
        const place = position < 0 ? root.lastControl : position;
        const before = controls.slice(0, place + 1).reverse();
        const found = before.concat(controls.slice(place + 1)).find(control => control.enabled);
        return found ?? (row.takesKeyboard ? row : null);
    }

    /// As focusRow, in the first row from that one on, in steps of 1 or -1, that takes the keyboard;
    /// where none does, it stays where it is.
    function focusFrom(index, step, position) {
        const here = root.focusedRow();
        const control = root.focusedControl();
        for (let row = index; row >= 0 && row < view.count; row += step) {
            if (root.focusRow(row, position)) {
                return true;
            }
        }
        if (here >= 0 && index >= 0 && index < view.count) {
            root.focusRow(here, control); // it may have been scrolled away
        }
        return false;
    }

    /// Where the control with the keyboard stands among those of its row; -1 is the row itself.
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

    /// The keyboard stays where it was when what had it was removed or hidden. What was merely
    /// scrolled away has it again at the next key.
    function restore() {
        const item = root.Window.activeFocusItem;
        if (item !== view && !(item && !item.visible && scroller.holds(item))) {
            return;
        }
        const row = Math.min(root.lastRow, view.count - 1);
        const place = view.itemAtIndex(row);
        if (view.count === 0) {
            root.leave(1);
        } else if (place && place.visible && place.y < view.contentY + view.height && place.y + place.height > view.contentY) {
            root.focusRow(row, root.lastControl);
        }
    }

    function remember() {
        const row = root.focusedRow();
        if (row >= 0) {
            root.lastRow = row;
            if (root.focusedControl() >= 0) {
                root.lastControl = root.focusedControl();
            }
        }
    }

    /// For a row that is put away to be used for another one: the keyboard waits in the list, and
    /// the next arrow takes it to the row that had it.
    function release(row) {
        const item = root.Window.activeFocusItem;
        if (item && root.rowOf(item) === row) {
            item.focus = false;
        }
    }

    /// The rows are other ones now: who enters begins with the first.
    function startOver() {
        root.lastRow = 0;
        root.lastControl = 0;
        view.positionViewAtBeginning();
    }

    /// Brings the row into view as soon as it has grown by what was just done to it.
    function follow(row) {
        root.growing = row;
    }

    function showGrown() {
        if (root.growing) {
            view.forceLayout();
            scroller.reveal(root.growing);
            root.growing = null;
        }
    }

    function step(event, distance) {
        if (root.Window.activeFocusItem === view) {
            event.accepted = root.focusRow(root.lastRow, root.lastControl);
            return;
        }
        const row = root.focusedRow();
        event.accepted = row >= 0 && root.focusFrom(row + distance, distance, root.focusedControl());
    }

    /// Goes to the next control of the row, in steps of 1 or -1; false if there is none.
    function moveAlong(step) {
        const row = root.rowOf(root.Window.activeFocusItem);
        const controls = row ? root.controlsOf(row) : [];
        const here = root.focusedControl();
        const start = here < 0 && step < 0 ? controls.length : here;
        for (let at = start + step; at >= 0 && at < controls.length; at += step) {
            if (controls[at].enabled) {
                controls[at].forceActiveFocus(Qt.TabFocusReason);
                return true;
            }
        }
        if (row && row.selectable && here >= 0 && step < 0) {
            row.forceActiveFocus(Qt.TabFocusReason);
            return true;
        }
        return false;
    }

    function needsArrows(row) {
        return root.controlsOf(row).some(control => !(control instanceof PressButton));
    }

    /// The keyboard comes from outside.
    function enter(step) {
        if (!root.focusRow(root.lastRow, root.lastControl) && !root.focusFrom(0, 1, 0)) {
            root.leave(step);
        }
    }

    function leave(step) {
        // From within what is hidden, the toolkit does not find the way out.
        const edge = !root.visible ? root : step > 0 ? after : before;
        const next = edge.nextItemInFocusChain(step > 0);
        next.forceActiveFocus(step > 0 ? Qt.TabFocusReason : Qt.BacktabFocusReason);
    }

    function tab(step) {
        const row = root.rowOf(root.Window.activeFocusItem);
        if (!row || !root.needsArrows(row) || !root.moveAlong(step)) {
            root.leave(step);
        }
    }

    /// The page that is seen moves; who is in it moves along.
    function page(event) {
        const row = root.focusedRow();
        const control = root.focusedControl();
        const ends = [Qt.Key_Home, Qt.Key_End].indexOf(event.key);
        if (row >= 0 && ends >= 0) {
            event.accepted = root.focusFrom(ends * (view.count - 1), 1 - 2 * ends, control);
            return;
        }
        const start = view.contentY;
        const middle = row >= 0 ? view.itemAtIndex(row).y + view.itemAtIndex(row).height / 2 : 0;
        scroller.page(event);
        if (event.accepted && row >= 0) {
            const forward = event.key === Qt.Key_PageDown;
            const place = middle + view.contentY - start;
            view.forceLayout();
            const there = Math.max(view.indexAt(1, place), view.indexAt(1, place + view.spacing));
            const next = view.contentY === start || there < 0 ? (forward ? view.count - 1 : 0) : there;
            root.focusFrom(next, forward ? -1 : 1, control);
        }
    }

    Accessible.name: root.label
    Accessible.role: Accessible.List
    // Not the height of all rows: a layout would give it that for a moment, and all would be made.
    implicitHeight: 120

    Keys.onDownPressed: event => root.step(event, 1)
    Keys.onLeftPressed: event => event.accepted = root.moveAlong(-1)
    Keys.onPressed: event => root.page(event)
    Keys.onRightPressed: event => event.accepted = root.moveAlong(1)
    Keys.onUpPressed: event => root.step(event, -1)

    // A control takes Tab before the list could hear of it.
    Shortcut {
        enabled: root.holdsKeyboard
        sequence: "Tab"

        onActivated: root.tab(1)
    }
    Shortcut {
        enabled: root.holdsKeyboard
        sequence: "Shift+Tab"

        onActivated: root.tab(-1)
    }
    // Where Tab arrives from before the list and from behind it.
    Item {
        id: before

        activeFocusOnTab: view.count > 0

        onActiveFocusChanged: {
            if (before.activeFocus) {
                root.enter(1);
            }
        }
    }
    ListView {
        id: view

        anchors.fill: parent
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        currentIndex: -1 // a current row takes the keyboard from others when rows come and go
        interactive: false
        keyNavigationEnabled: false
        spacing: 8

        onCountChanged: settling.restart()
    }
    Timer {
        id: settling

        interval: 0

        onTriggered: {
            view.forceLayout(); // rows are found by their places
            root.remember();
            root.restore();
        }
    }
    Timer {
        id: showing

        interval: 0

        onTriggered: root.showGrown()
    }
    RowOrder {
        rows: view.contentItem
    }
    Connections {
        target: root.holdsKeyboard ? scroller.focused : null

        function onVisibleChanged() {
            settling.restart();
        }
    }
    Connections {
        target: root.growing

        function onHeightChanged() {
            showing.restart();
        }
    }
    Item {
        id: after

        activeFocusOnTab: view.count > 0

        onActiveFocusChanged: {
            if (after.activeFocus) {
                root.enter(-1);
            }
        }
    }
    SecondaryText {
        anchors.centerIn: parent
        horizontalAlignment: Text.AlignHCenter
        text: root.placeholder
        visible: view.count === 0 && root.placeholder !== ""
        width: Math.min(implicitWidth, parent.width)
    }
    Scroller {
        id: scroller

        view: view

        onFocusedChanged: {
            root.remember();
            settling.restart();
        }
    }
}
