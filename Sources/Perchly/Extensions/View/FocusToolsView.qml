import QtQuick
import QtQuick.Layouts
import Perchly.Look
import Perchly.Stores
import Perchly.Extensions

/// The focus timer: its lengths, what is left, and the day's totals.
ColumnLayout {
    id: root

    required property ShelfModel model
    required property ShelfPreferences preferences

    readonly property string remaining: {
        const digits = number => String(number).padStart(2, "0");
        return digits(Math.floor(root.model.seconds / 60)) + ":" + digits(root.model.seconds % 60);
    }

    spacing: 12

    RoundedRect {
        Layout.fillWidth: true
        color: Theme.row
        implicitHeight: lengths.implicitHeight + 20
        radius: 12

        ColumnLayout {
            id: lengths

            anchors.left: parent.left
            anchors.leftMargin: 14
            anchors.right: parent.right
            anchors.rightMargin: 10
            anchors.verticalCenter: parent.verticalCenter
            spacing: 10

            StepperRow {
                Layout.fillWidth: true
                current: root.preferences.focusMinutes
                maximumValue: 180
                minimumValue: 1
                text: "Focus: " + root.preferences.focusMinutes + " minutes"

                onMoved: value => root.preferences.focusMinutes = value
            }
            Rectangle {
                Layout.fillWidth: true
                Layout.rightMargin: 4
                color: Theme.line
                implicitHeight: 1
            }
            StepperRow {
                Layout.fillWidth: true
                current: root.preferences.breakMinutes
                maximumValue: 60
                minimumValue: 1
                text: "Break: " + root.preferences.breakMinutes + " minutes"

                onMoved: value => root.preferences.breakMinutes = value
            }
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
            text: "Start focus"

            onActivated: {
                root.model.quietFocus = true;
                root.model.focus();
            }
        }
        PushButton {
            text: "Start break"

            onActivated: root.model.startBreak()
        }
        PushButton {
            enabled: root.model.seconds > 0
            text: root.model.running ? "Pause" : "Resume"

            onActivated: root.model.togglePause()
        }
        PushButton {
            text: "End"

            onActivated: root.model.endFocus()
        }
    }
    SecondaryText {
        Layout.fillWidth: true
        text: "Today: " + root.model.todaySessions + " focus sessions · " + root.model.todayMinutes + " minutes"
    }
    Item {
        Layout.fillHeight: true
    }
}
