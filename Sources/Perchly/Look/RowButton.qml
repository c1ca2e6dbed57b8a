import Perchly.Look

/// A button of a row in a list.
PushButton {
    required subject

    size: 12
}
