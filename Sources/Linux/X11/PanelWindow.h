#pragma once

#include "XcbConnection.h"

class QRegion;
class QWindow;

namespace perchly {

/// What the panel's window tells the X server about itself, beyond what the toolkit tells. All of
/// it is sent in order with the toolkit's own requests.

/// Flags and format; before the window is created.
void preparePanel(QWindow &panel);

/// Properties and gravity; once the window is created.
void describePanel(XcbConnection &connection, xcb_window_t panel);

enum class Transparency { Available, Missing };

/// The pointer is taken inside the shape only, given in the window's pixels. Without transparency
/// the rest is not shown either.
void shapePanel(xcb_window_t panel, const QRegion &shape, Transparency);

/// The whole window takes the pointer and is shown, until it is shaped again. Sent with what
/// follows.
void unshapePanel(xcb_window_t panel);

} // namespace perchly
