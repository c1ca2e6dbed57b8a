import Perchly.Look

/// A small remark.
BodyText {
    font.pixelSize: 11
}
