import Perchly.Look

/// A button in a list row.
PushButton {
    required subject

    size: 12
}
