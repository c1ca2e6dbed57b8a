pragma ComponentBehavior: Bound

import QtQuick
import Perchly.Look
import Perchly.Stores
import Perchly.Shelf

/// The shelf's entries in pages, turned by the arrows, the wheel, a drag, or the keyboard.
Item {
    id: root

    required property ShelfModel model
    required property ShelfLibrary library
    required property ShellActions shell
    required property PopoverLayer popovers
    /// Screen pixels per point.
    property real pictureScale: 1

    readonly property int count: root.library.shown.length
    /// Horizontal shift of the entries at rest.
    property real offset: 0
    readonly property alias shift: position.value
    readonly property real lowest: StripPaging.lowest(root.count)

    function goBack() {
        root.offset = StripPaging.previous(root.offset);
    }

    function goOn() {
        root.offset = StripPaging.next(root.offset, root.count);
    }

    function show(entry: int) {
        root.offset = StripPaging.showing(entry, root.offset, root.count);
    }

    Accessible.name: qsTr("Your shelf")
    Accessible.role: Accessible.Grouping

    /// Turns the page and moves the focus with it, so that no hidden entry has the focus.
    function page(on: bool) {
        if (on) {
            root.goOn();
        } else {
            root.goBack();
        }
        const focused = root.focusedEntry();
        if (focused >= 0 && !StripPaging.shows(focused, root.offset)) {
            const next = StripPaging.nearest(focused, root.offset, root.count);
            ((entries.itemAt(next) as Loader)?.item as Item)?.forceActiveFocus(Qt.TabFocusReason);
        }
    }

    /// Moves the focus by that many entries; turns the page while no entry has it.
    function step(by: int) {
        const focused = root.focusedEntry();
        if (focused < 0) {
            root.page(by > 0);
        } else {
            ((entries.itemAt(focused + by) as Loader)?.item as Item)?.forceActiveFocus(Qt.TabFocusReason);
        }
    }

    function focusedEntry(): int {
        for (let index = 0; index < entries.count; ++index) {
            if (((entries.itemAt(index) as Loader)?.item as Item)?.activeFocus) {
                return index;
            }
        }
        return -1;
    }

    Keys.onLeftPressed: root.step(-1)
    Keys.onRightPressed: root.step(1)
    Keys.onPressed: event => {
        if (event.key === Qt.Key_PageUp || event.key === Qt.Key_PageDown) {
            event.accepted = true;
            root.page(event.key === Qt.Key_PageDown);
        }
    }

    Connections {
        target: root.library

        function onShownChanged() {
            root.offset = 0;
        }
    }

    SpringValue {
        id: position

        reduced: Theme.reduceMotion
        target: root.offset
    }

    Label {
        Accessible.ignored: !visible
        Accessible.name: text
        Accessible.role: Accessible.StaticText
        anchors.centerIn: parent
        color: Theme.shelfGrey
        font.pixelSize: 12
        text: qsTr("Choose widgets and apps in Settings")
        visible: root.count === 0
    }

    StripArrow {
        id: back

        anchors.left: parent.left
        anchors.verticalCenter: parent.verticalCenter
        symbol: "chevron.left"
        toolTip: qsTr("Previous icons")
        usable: root.offset < 0
        visible: root.count > 0
        onActivated: root.goBack()
    }

    Item {
        id: film

        anchors.bottom: parent.bottom
        anchors.left: back.right
        anchors.leftMargin: 8
        anchors.right: on.left
        anchors.rightMargin: 8
        anchors.top: parent.top
        clip: true
        visible: root.count > 0

        MouseArea {
            id: wheel

            property real turned: 0
            property bool swiped: false

            acceptedButtons: Qt.NoButton
            anchors.fill: parent
            onWheel: event => {
                const turn = event.angleDelta.x !== 0 ? event.angleDelta.x : event.angleDelta.y;
                const notch = Math.abs(turn) >= 120;
                calm.restart();
                if (wheel.swiped && !notch) {
                    return; // the rest of a swipe that has already turned the page
                }
                wheel.turned += turn;
                if (Math.abs(wheel.turned) >= 120) {
                    if (wheel.turned > 0) {
                        root.goBack();
                    } else {
                        root.goOn();
                    }
                    wheel.turned = 0;
                    wheel.swiped = !notch;
                }
            }
        }

        Item {
            height: film.height
            x: position.value + (drag.active ? drag.activeTranslation.x * 0.6 : 0)

            Repeater {
                id: entries

                model: root.library.shown

                Loader {
                    id: place

                    required property shelfItem modelData
                    required property int index

                    x: place.index * StripPaging.pitch

                    Component.onCompleted: {
                        if (place.modelData.kind === "widget") {
                            place.setSource("WidgetTile.qml", {
                                model: root.model,
                                popovers: root.popovers,
                                widget: place.modelData.widgetTitle
                            });
                        } else {
                            place.setSource("StripEntry.qml", {
                                entry: place.modelData,
                                pictureScale: root.pictureScale,
                                shell: root.shell
                            });
                        }
                    }

                    Keys.onPressed: event => menu.pressByKey(event, place)

                    MenuArea {
                        id: menu

                        z: 1 // above the loaded item
                        onAsked: (position, byKey) => root.shell.showEntryMenu(place.modelData.id, place.item, position, byKey)
                    }
                    Binding {
                        property: "pictureScale"
                        target: place.item
                        value: root.pictureScale
                        when: place.modelData.kind !== "widget"
                    }
                    // The digit that launches the entry.
                    RoundedRect {
                        color: Theme.floating
                        height: 16
                        radius: 8
                        visible: root.model.keyboardOpen && place.index < 9 && place.modelData.kind !== "widget"
                        width: 16
                        x: 4
                        y: 4
                        z: 1

                        Label {
                            anchors.centerIn: parent
                            font.bold: true
                            font.pixelSize: 9
                            text: place.index + 1
                        }
                    }
                    Connections {
                        target: place.item as Item

                        function onActiveFocusChanged() {
                            if ((place.item as Item).activeFocus) {
                                root.show(place.index);
                            }
                        }
                    }
                }
            }
        }

        DragHandler {
            id: drag

            property real travelled: 0

            target: null
            xAxis.enabled: root.lowest < 0
            yAxis.enabled: false
            onActiveTranslationChanged: {
                if (drag.active) {
                    drag.travelled = drag.activeTranslation.x;
                }
            }
            onActiveChanged: {
                if (drag.active) {
                    drag.travelled = 0;
                } else if (drag.travelled !== 0) {
                    position.jumpTo(position.value + drag.travelled * 0.6);
                    root.offset = StripPaging.dragged(root.offset, drag.travelled, root.count);
                    position.target = Qt.binding(() => root.offset);
                }
            }
        }

        Timer {
            id: calm

            interval: 180
            onTriggered: {
                wheel.turned = 0;
                wheel.swiped = false;
            }
        }
    }

    StripArrow {
        id: on

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        symbol: "chevron.right"
        toolTip: qsTr("More icons")
        usable: root.lowest < root.offset
        visible: root.count > 0
        onActivated: root.goOn()
    }
}
