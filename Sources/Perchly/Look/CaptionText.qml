import Perchly.Look

/// Small secondary text.
BodyText {
    font.pixelSize: 11
}
