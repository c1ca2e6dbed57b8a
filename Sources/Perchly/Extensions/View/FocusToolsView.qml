import QtQuick
import QtQuick.Layouts
import Perchly.Look
import Perchly.Stores
import Perchly.Extensions

/// The focus timer: its lengths, the time left, and the day's totals.
ColumnLayout {
    id: root

    required property ShelfModel model
    required property ShelfPreferences preferences

    readonly property bool counting: root.model.seconds > 0
    /// The remaining time of a session, or the length of the next one.
    readonly property string remaining: {
        if (!root.counting) {
            return root.preferences.focusMinutes + ":00";
        }
        const digits = number => String(number).padStart(2, "0");
        return digits(Math.floor(root.model.seconds / 60)) + ":" + digits(root.model.seconds % 60);
    }

    spacing: 12

    FormGroup {
        Layout.fillWidth: true

        StepperRow {
            current: root.preferences.focusMinutes
            from: 1
            label: qsTr("Focus: %n minutes", "", root.preferences.focusMinutes)
            to: 180
            width: parent.width

            onAsked: value => root.preferences.focusMinutes = value
        }
        Rectangle {
            color: Theme.line
            height: 1
            width: parent.width
        }
        StepperRow {
            current: root.preferences.breakMinutes
            from: 1
            label: qsTr("Break: %n minutes", "", root.preferences.breakMinutes)
            to: 60
            width: parent.width

            onAsked: value => root.preferences.breakMinutes = value
        }
    }
    DigitText {
        Accessible.name: root.remaining
        Accessible.role: Accessible.StaticText
        Layout.topMargin: 10
        color: root.model.running ? Theme.accent : Theme.text
        size: 34
        text: root.remaining
        weight: Font.Medium
    }
    Flow {
        Layout.fillWidth: true
        spacing: 8

        PushButton {
            prominent: !root.model.running
            text: qsTr("Start focus")

            onActivated: {
                root.model.quietFocus = true;
                root.model.focus();
            }
        }
        PushButton {
            text: qsTr("Start break")

            onActivated: root.model.startBreak()
        }
        PushButton {
            text: root.model.running ? qsTr("Pause") : qsTr("Resume")
            usable: root.counting

            onActivated: root.model.togglePause()
        }
        PushButton {
            text: qsTr("End")
            usable: root.counting

            onActivated: root.model.endFocus()
        }
    }
    SecondaryText {
        Layout.fillWidth: true
        text: qsTr("Today: %n focus sessions", "", root.model.todaySessions) + " · " + qsTr("%n minutes", "", root.model.todayMinutes)
    }
    Item {
        Layout.fillHeight: true
    }
}
