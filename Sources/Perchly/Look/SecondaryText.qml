import Perchly.Look

/// Explanatory text in a quieter colour.
BodyText {
    color: Theme.grey
}
