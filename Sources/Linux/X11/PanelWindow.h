#pragma once

#include "XcbConnection.h"

class QRegion;
class QWindow;

namespace perchly {

/// X11 requests for the panel's window that Qt does not make, in order with Qt's own.

/// Sets flags and format; call it before the window is created.
void preparePanel(QWindow &panel);

/// Sets properties and gravity; call it once the window is created.
void describePanel(XcbConnection &connection, xcb_window_t panel);

enum class Transparency { Available, Missing };

/// Limits where the panel takes the pointer to the shape, in the window's pixels. Without
/// transparency the rest is not shown either.
void shapePanel(xcb_window_t panel, const QRegion &shape, Transparency transparency);

/// Removes the shape. Not flushed.
void unshapePanel(xcb_window_t panel);

} // namespace perchly
