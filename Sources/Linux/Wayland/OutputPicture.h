#pragma once

#include <QImage>

class QScreen;

namespace perchly {

class WaylandConnection;

/// A picture of a display without the pointer, in its pixels; null if the compositor does not make
/// one (wlr-screencopy). Blocks.
[[nodiscard]] QImage takeOutputPicture(const WaylandConnection &connection, QScreen &screen);

} // namespace perchly
