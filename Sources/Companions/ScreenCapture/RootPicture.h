#pragma once

#include <QImage>

struct xcb_connection_t;

namespace perchly {

/// What the whole X screen shows, in pixels; null if its format is unknown. Blocks.
[[nodiscard]] QImage takeRootPicture(xcb_connection_t *connection);

} // namespace perchly
