#pragma once

#include <QImage>

struct xcb_connection_t;

namespace perchly {

/// What all the displays show now, pixel by pixel, without the pointer; null if the server does not
/// give it or has pixels of an unusual kind.
[[nodiscard]] QImage takeRootPicture(xcb_connection_t *connection);

} // namespace perchly
