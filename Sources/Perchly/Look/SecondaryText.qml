import Perchly.Look

/// Text that explains, quieter than what it explains.
BodyText {
    color: Theme.grey
}
