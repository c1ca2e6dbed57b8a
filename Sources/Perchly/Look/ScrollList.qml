import QtQuick
import Perchly.Look

/// A scrollable list of rows that is one stop for Tab. Up and Down switch rows, Left and Right
/// switch controls, Home and End go to the ends, and the list remembers where the keyboard was. In
/// a row whose controls need the arrows, Tab goes through the controls before it leaves. Rows are
/// focus scopes; one may take the keyboard as a whole: see `takesKeyboard` and `selectable` of
/// RowCard.
Item {
    id: root

    /// The accessible name.
    required property string label
    /// Shown while there are no rows.
    property string placeholder: ""
    /// Gets the keyboard when the last row is removed; null leaves it to the item after the list.
    property Item fallback: null
    property alias model: view.model
    property alias delegate: view.delegate
    property alias spacing: view.spacing
    property alias count: view.count
    property alias reuseItems: view.reuseItems
    /// How far outside the view rows are kept ready, in points.
    property alias cacheBuffer: view.cacheBuffer
    /// Its current row has, or last had, the keyboard.
    readonly property alias view: view

    property int lastControl: 0
    /// Whether it has had the keyboard.
    property bool visited: false
    property Item lastRow: null
    /// The row that has the keyboard as a whole.
    property Item whole: null

    // These functions declare no types: compiled ahead of time, they would access deleted items.

    function rowOf(item) {
        let at = item;
        while (at && at.parent !== view.contentItem) {
            at = at.parent;
        }
        return at;
    }

    /// The controls inside, including disabled ones, so that positions stay the same.
    function controlsOf(item) {
        const found = [];
        for (const child of Array.from(item.children)) {
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

    /// Position of the control with the keyboard in its row; -1 for the row as a whole.
    function focusedControl() {
        return view.activeFocus && view.currentItem ? root.controlsOf(view.currentItem).indexOf(scroller.focused) : -1;
    }

    /// Gives the keyboard to the row as a whole.
    function select(row) {
        root.controlsOf(row).forEach(control => control.focus = false);
        row.forceActiveFocus(Qt.TabFocusReason);
    }

    /// Gives the keyboard to the control at `position` in the row, else to the nearest one that
    /// takes it, else (or for -1) to the row itself. False if none takes it.
    function focusRow(index, position) {
        const at = Math.min(view.count - 1, index);
        view.positionViewAtIndex(at, ListView.Contain);
        view.forceLayout();
        const row = view.itemAtIndex(at);
        return row ? root.focusIn(row, position) : false;
    }

    function focusIn(row, position) {
        const controls = root.controlsOf(row);
        const place = position < 0 ? root.lastControl : position;
        const nearest = controls.slice(0, place + 1).reverse().concat(controls.slice(place + 1));
        const found = nearest.find(control => control.enabled);
        if (found ? position < 0 && row.selectable : row.takesKeyboard) {
            root.select(row);
            return true;
        }
        found?.forceActiveFocus(Qt.TabFocusReason);
        return Boolean(found);
    }

    /// Calls focusRow for `index` and further rows, in steps of 1 or -1, until one takes the
    /// keyboard. If none does, it stays where it is.
    function focusFrom(index, step, position) {
        const here = view.activeFocus ? view.currentIndex : -1;
        const control = root.focusedControl();
        for (let row = index; row >= 0 && row < view.count; row += step) {
            if (root.focusRow(row, position)) {
                return true;
            }
        }
        if (here >= 0 && index >= 0 && index < view.count) {
            root.focusRow(here, control); // it may have been scrolled out of view
        }
        return false;
    }

    function remember() {
        const item = scroller.focused;
        const row = root.rowOf(item);
        if (row) {
            root.visited = true;
            if (item !== row) {
                root.whole = null;
                root.lastControl = Math.max(0, root.controlsOf(row).indexOf(item));
            } else if (row !== view.currentItem || row === root.lastRow) {
                root.whole = row; // else the view chose it, as another row was removed
            }
            if (row !== view.currentItem) {
                view.currentIndex = view.indexAt(row.x, row.y + row.height / 2);
            }
        }
        root.lastRow = row;
    }

    /// Restores the keyboard after the item that had it was removed or hidden.
    function restore() {
        const item = scroller.focused;
        view.forceLayout();
        if (view.activeFocus && view.count === 0) {
            if (root.fallback) {
                root.fallback.forceActiveFocus(Qt.TabFocusReason);
            } else {
                root.leave(1);
            }
        } else if (view.activeFocus && (!item.visible || item === view || (item === view.currentItem && item !== root.whole))) {
            root.focusRow(view.currentIndex, root.lastControl);
        }
    }

    /// Scrolls to the row, without the keyboard.
    function show(index) {
        view.forceLayout();
        view.positionViewAtIndex(index, ListView.Contain);
    }

    /// The rows were replaced, so the keyboard enters at the first.
    function startOver() {
        view.currentIndex = 0;
        root.lastControl = 0;
        view.positionViewAtBeginning();
    }

    /// Scrolls to the row once its height has changed.
    function follow(row) {
        growing.target = row;
    }

    function showGrown() {
        view.forceLayout();
        if (growing.target) {
            scroller.reveal(growing.target);
            growing.target = null;
        }
    }

    function step(event, distance) {
        event.accepted = view.activeFocus && root.focusFrom(view.currentIndex + distance, distance, root.focusedControl());
    }

    /// Goes to the next control in the row, in steps of 1 or -1; false at the end.
    function moveAlong(step) {
        const row = view.activeFocus ? view.currentItem : null;
        const controls = row ? root.controlsOf(row) : [];
        const here = root.focusedControl();
        const start = here < 0 && step < 0 ? controls.length : here;
        for (let at = start + step; at >= 0 && at < controls.length; at += step) {
            if (controls[at].enabled) {
                controls[at].forceActiveFocus(Qt.TabFocusReason);
                return true;
            }
        }
        const selects = Boolean(row) && row.selectable && here >= 0 && step < 0;
        if (selects) {
            root.select(row);
        }
        return selects;
    }

    /// Takes the keyboard from outside.
    function enter(step) {
        if (!root.visited) {
            view.currentIndex = 0; // rows may have been inserted above it
        }
        if (!root.focusRow(view.currentIndex, root.lastControl) && !root.focusFrom(0, 1, 0)) {
            root.leave(step);
        }
    }

    function leave(step) {
        // Qt cannot find the next item from inside a hidden one.
        const edge = !root.visible ? root : step > 0 ? after : before;
        const next = edge.nextItemInFocusChain(step > 0);
        next.forceActiveFocus(step > 0 ? Qt.TabFocusReason : Qt.BacktabFocusReason);
    }

    function tab(step) {
        const needsArrows = root.controlsOf(view.currentItem).some(control => !(control instanceof PressButton));
        if (!needsArrows || !root.moveAlong(step)) {
            root.leave(step);
        }
    }

    /// Scrolls by a page and moves the keyboard with it.
    function page(event) {
        const control = root.focusedControl();
        const ends = [Qt.Key_Home, Qt.Key_End].indexOf(event.key);
        if (view.activeFocus && ends >= 0) {
            event.accepted = root.focusFrom(ends * (view.count - 1), 1 - 2 * ends, control);
            return;
        }
        const row = view.activeFocus ? view.currentItem : null;
        const start = view.contentY;
        scroller.page(event);
        if (event.accepted && row) {
            const forward = event.key === Qt.Key_PageDown;
            const place = row.y + row.height / 2 + view.contentY - start;
            view.forceLayout();
            const there = Math.max(view.indexAt(1, place), view.indexAt(1, place + view.spacing));
            const next = view.contentY === start || there < 0 ? (forward ? view.count - 1 : 0) : there;
            root.focusFrom(next, forward ? -1 : 1, control);
        }
    }

    Accessible.name: root.label
    Accessible.role: Accessible.List
    // Not the height of all rows: a layout might apply it for a moment and create all of them.
    implicitHeight: 120

    Keys.onDownPressed: event => root.step(event, 1)
    Keys.onLeftPressed: event => event.accepted = root.moveAlong(-1)
    Keys.onPressed: event => root.page(event)
    Keys.onRightPressed: event => event.accepted = root.moveAlong(1)
    Keys.onUpPressed: event => root.step(event, -1)

    // Shortcuts, since a focused control would consume Tab before the list's Keys handlers.
    Shortcut {
        enabled: view.activeFocus
        sequence: "Tab"

        onActivated: root.tab(1)
    }
    Shortcut {
        enabled: view.activeFocus
        sequence: "Shift+Tab"

        onActivated: root.tab(-1)
    }
    // Tab stops before and after the list.
    Item {
        id: before

        activeFocusOnTab: view.count > 0 || before.activeFocus

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
        highlightFollowsCurrentItem: false
        highlightMoveDuration: 0
        interactive: false
        keyNavigationEnabled: false
        spacing: 8

        onCountChanged: settling.restart()
    }
    Timer {
        id: settling

        interval: 0

        onTriggered: root.restore()
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
        target: view.activeFocus ? scroller.focused : null

        function onVisibleChanged() {
            settling.restart();
        }
    }
    Connections {
        id: growing

        target: null

        function onHeightChanged() {
            showing.restart();
        }
    }
    Item {
        id: after

        activeFocusOnTab: view.count > 0 || after.activeFocus

        onActiveFocusChanged: {
            if (after.activeFocus) {
                root.enter(-1);
            }
        }
    }
    EmptyText {
        text: view.count === 0 ? root.placeholder : ""
    }
    Scroller {
        id: scroller

        view: view

        onFocusedChanged: root.remember()
    }
}
