#pragma once

#include <QByteArray>

#include <optional>

namespace perchly {

/// One image in the forms in which other programs ask for it; a form that nobody asked for yet is
/// empty.
struct SelectionImage {
    QByteArray png = {};
    QByteArray tiff = {};
};

/// The image that the bytes encode; nothing when they do not decode. Takes its time.
[[nodiscard]] std::optional<SelectionImage> decodedImage(const QByteArray &encoded);

/// Fills in a missing form from the other one, which takes its time.
void completePng(SelectionImage &image);
void completeTiff(SelectionImage &image);

} // namespace perchly
