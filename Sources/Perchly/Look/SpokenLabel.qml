import QtQuick
import Perchly.Look

/// A label that assistive programs read.
Label {
    Accessible.name: text
    Accessible.role: Accessible.StaticText
}
