import QtQuick
import Perchly.Look

/// A list of rows that scrolls, and one stop for Tab: the arrows go from row to row and from a
/// control to its neighbour, Home and End to the ends, and the list remembers where the keyboard
/// was. In a row that needs the arrows for itself, Tab goes along the row before it leaves. Rows are
/// focus scopes; one may have the keyboard as a whole: see `takesKeyboard` and `selectable` of
/// RowCard.
Item {
    id: root

    /// What assistive programs call it.
    required property string label
    /// Shown while there are no rows.
    property string placeholder: ""
    /// Gets the keyboard when the last row goes; without one, what follows the list does.
    property Item fallback: null
    property alias model: view.model
    property alias delegate: view.delegate
    property alias spacing: view.spacing
    property alias count: view.count
    property alias reuseItems: view.reuseItems
    /// How far outside the view rows are kept ready, in points.
    property alias cacheBuffer: view.cacheBuffer
    /// Its current row is the one that has the keyboard, or had it.
    readonly property alias view: view

    property int lastControl: 0
    property Item lastRow: null
    /// The row that was given the keyboard as a whole.
    property Item whole: null

    // These functions name no types, since compiled ahead of time they would read through items that
    // are gone.

    function rowOf(item) {
        let at = item;
        while (at && at.parent !== view.contentItem) {
            at = at.parent;
        }
        return at;
    }

    /// The controls inside, also those that are disabled now, so that positions stay the same.
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

    /// Where the control with the keyboard stands in its row; -1 is the row as a whole.
    function focusedControl() {
        return view.activeFocus && view.currentItem ? root.controlsOf(view.currentItem).indexOf(scroller.focused) : -1;
    }

    /// Gives the keyboard to the row as a whole.
    function select(row) {
        root.controlsOf(row).forEach(control => control.focus = false);
        row.forceActiveFocus(Qt.TabFocusReason);
    }

    /// Gives the keyboard to the control at that position in the row, or to the next one to it that
    /// takes it, or to the row itself, which is the position -1; false if none of them takes it.
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

    /// As focusRow, in the first row from that one on, in steps of 1 or -1, that takes the keyboard;
    /// where none does, it stays where it is.
    function focusFrom(index, step, position) {
        const here = view.activeFocus ? view.currentIndex : -1;
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

    function remember() {
        const item = scroller.focused;
        const row = root.rowOf(item);
        if (row) {
            if (item !== row) {
                root.whole = null;
                root.lastControl = Math.max(0, root.controlsOf(row).indexOf(item));
            } else if (row !== view.currentItem || row === root.lastRow) {
                root.whole = row; // else the view has made it the current one, as another is gone
            }
            if (row !== view.currentItem) {
                view.currentIndex = view.indexAt(row.x, row.y + row.height / 2);
            }
        }
        root.lastRow = row;
    }

    /// The keyboard stays where it was when what had it was removed or hidden.
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

    /// The rows are other ones now: who enters begins with the first.
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

    /// Goes to the next control of the row, in steps of 1 or -1; false if there is none.
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

    /// The keyboard comes from outside.
    function enter(step) {
        if (!root.focusRow(view.currentIndex, root.lastControl) && !root.focusFrom(0, 1, 0)) {
            root.leave(step);
        }
    }

    function leave(step) {
        // Qt does not find the next item from inside a hidden one.
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

    /// The page that is seen moves, and the keyboard with it.
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
    // Not the height of all rows: a layout would give it that for a moment, and all would be made.
    implicitHeight: 120

    Keys.onDownPressed: event => root.step(event, 1)
    Keys.onLeftPressed: event => event.accepted = root.moveAlong(-1)
    Keys.onPressed: event => root.page(event)
    Keys.onRightPressed: event => event.accepted = root.moveAlong(1)
    Keys.onUpPressed: event => root.step(event, -1)

    // Shortcuts: a focused control would consume Tab before the list's Keys handlers.
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

        onFocusedChanged: root.remember()
    }
}
