#pragma once

class QIODevice;

namespace perchly {

/// Whether Qt may open other files to draw an SVG, which may be pipes, or whether that is unknown:
/// the SVG has more than 32 MB or its compression is damaged. Returns the device to its start. Any
/// thread.
[[nodiscard]] bool svgMayNameFiles(QIODevice &svg);

} // namespace perchly
