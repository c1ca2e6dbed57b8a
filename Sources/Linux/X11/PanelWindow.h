#pragma once

#include "XcbConnection.h"

class QRegion;
class QWindow;

namespace perchly {

/// Requests for the panel's window that Qt does not make, sent on Qt's connection.

/// Sets flags and format; call it before the window is created.
void preparePanel(QWindow &panel);

/// Sets properties and gravity; call it once the window is created.
void describePanel(XcbConnection &connection, xcb_window_t panel);

enum class Transparency { Available, Missing };

/// Limits pointer input to the shape, in the window's pixels. Without transparency, the rest of the
/// window is not shown either.
void shapePanel(xcb_window_t panel, const QRegion &shape, Transparency transparency);

/// Asks the compositor to blur the screen behind this region, in the window's pixels. Not flushed.
void blurBehindPanel(XcbConnection &connection, xcb_window_t panel, const QRegion &region);

/// Removes the shape. Not flushed.
void unshapePanel(xcb_window_t panel);

} // namespace perchly
