#pragma once

#include <QImage>

struct xcb_connection_t;

namespace perchly {

/// A picture of the whole X screen, in pixels; null if its format is unknown. Blocks.
[[nodiscard]] QImage takeRootPicture(xcb_connection_t *connection);

} // namespace perchly
