import QtQuick
import Perchly.Look
import Perchly.Stores

/// A form row with a global chord. Pressing its field records another one: Escape keeps the old
/// chord, Backspace restores the default. The row says why a chord is refused or does not work.
/// Where chords cannot be registered, it only names the command that the user can bind.
Column {
    id: root

    required property ShelfHotKey hotKey
    required property int use
    required property string text
    required property string chord
    required property string failure
    required property bool isDefault

    property string refusal: ""
    readonly property bool recording: recorder.activeFocus
    readonly property bool used: field.activeFocus || root.recording || restore.activeFocus
    readonly property string shown: !root.recording ? root.chord : recorder.text !== "" ? recorder.text : qsTr("Press the new keys")

    /// The row has told why its chord is refused or does not work.
    signal told(words: Item)

    function reset() {
        root.refusal = root.hotKey.reset(root.use);
    }

    spacing: 6
    width: parent?.width ?? 0

    onUsedChanged: root.refusal = ""

    Item {
        implicitHeight: 30
        width: parent.width

        Label {
            anchors.left: parent.left
            anchors.right: field.left
            anchors.rightMargin: 12
            anchors.verticalCenter: parent.verticalCenter
            font.pixelSize: 13
            text: root.text
        }
        PressButton {
            id: field

            anchors.right: restore.left
            anchors.rightMargin: 8
            focusRadius: 10
            height: parent.height
            label: root.text
            pressedScale: 1
            subject: root.shown
            visible: root.hotKey.isSupported
            width: 200

            onActivated: recorder.forceActiveFocus()

            RoundedRect {
                anchors.fill: parent
                borderColor: root.recording ? Theme.accent : Theme.line
                borderWidth: root.recording ? 2 : 1
                color: Qt.rgba(1, 1, 1, field.containsMouse ? 0.1 : 0.06)
                radius: 8
            }
            Label {
                anchors.centerIn: parent
                color: root.recording && recorder.text === "" ? Theme.grey : Theme.text
                font.pixelSize: 13
                text: root.shown
                width: Math.min(implicitWidth, field.width - 16)
            }
            Item {
                id: recorder

                property string text: ""
                property int key: 0
                property int modifiers: 0

                function see(event: KeyEvent) {
                    recorder.key = root.hotKey.isComplete(event.key) ? event.key : 0;
                    recorder.modifiers = event.modifiers;
                    recorder.text = root.hotKey.pressedText(event.key, event.modifiers);
                }

                Accessible.description: root.shown
                Accessible.focusable: true
                Accessible.ignored: !root.recording
                Accessible.name: root.text
                Accessible.role: Accessible.HotkeyField
                anchors.fill: parent

                onActiveFocusChanged: {
                    released.stop();
                    recorder.key = 0;
                    recorder.text = "";
                    root.refusal = "";
                    root.hotKey.setRecording(recorder.activeFocus);
                    if (!recorder.activeFocus && recorder.focus) {
                        field.forceActiveFocus(); // the window lost the keyboard
                    }
                }

                Keys.onPressed: event => {
                    event.accepted = true;
                    released.stop();
                    if (event.isAutoRepeat) {
                        return;
                    }
                    const forward = event.key === Qt.Key_Tab;
                    if (event.modifiers === Qt.NoModifier && event.key === Qt.Key_Escape) {
                        field.forceActiveFocus();
                    } else if (event.modifiers === Qt.NoModifier && event.key === Qt.Key_Backspace) {
                        field.forceActiveFocus();
                        root.reset();
                    } else if ((event.modifiers === Qt.NoModifier && forward) || (event.modifiers === Qt.ShiftModifier && event.key === Qt.Key_Backtab)) {
                        recorder.nextItemInFocusChain(forward).forceActiveFocus(forward ? Qt.TabFocusReason : Qt.BacktabFocusReason);
                    } else {
                        recorder.see(event);
                    }
                }
                Keys.onReleased: event => {
                    event.accepted = true;
                    if (recorder.key !== 0) {
                        released.start();
                    } else if (recorder.text !== "") { // not the key that started the recording
                        recorder.see(event);
                    }
                }

                // A chord registered while it is held would be pressed by its key repeat, whose
                // releases Qt does not always tell from real ones.
                Timer {
                    id: released

                    interval: 80

                    onTriggered: {
                        root.refusal = root.hotKey.change(root.use, recorder.key, recorder.modifiers);
                        recorder.key = 0;
                        recorder.text = "";
                        if (root.refusal === "") {
                            field.forceActiveFocus();
                        }
                    }
                }
            }
        }
        PushButton {
            id: restore

            anchors.right: parent.right
            subject: root.text
            text: qsTr("Reset")
            usable: !root.isDefault
            visible: root.hotKey.isSupported

            onActivated: {
                restore.forceActiveFocus(Qt.MouseFocusReason); // ends a recording
                root.reset();
            }
        }
    }
    Item {
        readonly property string reason: root.refusal !== "" ? root.refusal : root.recording ? "" : root.failure

        id: problem

        implicitHeight: Math.max(words.implicitHeight, again.visible ? again.height : 0)
        visible: problem.reason !== ""
        width: parent.width

        BodyText {
            id: words

            Accessible.role: root.hotKey.isSupported ? Accessible.AlertMessage : Accessible.StaticText
            anchors.left: parent.left
            anchors.right: again.visible ? again.left : parent.right
            anchors.rightMargin: again.visible ? 12 : 0
            anchors.verticalCenter: parent.verticalCenter
            color: root.hotKey.isSupported ? Theme.orange : Theme.grey
            font.pixelSize: 12
            text: problem.reason

            onTextChanged: {
                if (words.text !== "" && root.used) {
                    root.told(words);
                }
            }
        }
        PushButton {
            id: again

            anchors.right: parent.right
            size: 12
            subject: root.text
            text: qsTr("Try again")
            visible: root.hotKey.isSupported && root.refusal === "" && root.failure !== ""

            onActivated: {
                again.forceActiveFocus(Qt.MouseFocusReason); // ends a recording
                root.hotKey.retry();
            }
            onVisibleChanged: {
                if (!again.visible && again.activeFocus) {
                    field.forceActiveFocus(Qt.MouseFocusReason);
                }
            }
        }
    }
}
