#pragma once

#include "Geometry.h"

#include <QMarginsF>
#include <QObject>
#include <QPointF>

class QRegion;
class QWindow;

namespace perchly {

/// Manages the shelf's panel, which differs from ordinary windows: it stays above everything on
/// every workspace, is not activated when shown or clicked, and can still get the keyboard. Main
/// thread only.
class PanelHost : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    /// Creates and prepares the panel's window. Call it once, before anything else.
    virtual void attach(QWindow *panel) = 0;

    /// Moves the panel to the frame at once. The window exceeds the frame by the margins, which
    /// hold its shadow. A new size removes the shape: set the new one right afterwards.
    virtual void place(const ScreenRect &frame, const QMarginsF &margins) = 0;

    /// Moves the panel to the frame while the pointer holds it. place() ends that.
    virtual void carry(const ScreenRect &frame, const QMarginsF &margins) { place(frame, margins); }

    /// Whether frames may overlap the desktop's panels: for window systems that do not tell where
    /// these are.
    virtual void setOverPanels(bool) {}

    /// Shows the panel above the other windows, except menus, notifications and screen locks,
    /// without taking the keyboard.
    virtual void orderFront() = 0;

    /// Limits pointer input to the shape, in the window's device pixels (y down). Clicks elsewhere
    /// go to the window below. Without transparency, nothing else is painted either.
    virtual void setShape(const QRegion &shape) = 0;

    /// Asks the compositor to blur the screen behind this region of the panel, in device pixels.
    /// Few compositors do.
    virtual void setBlur(const QRegion &region) = 0;

    /// Gives the panel the keyboard and remembers the window that had it.
    virtual void takeKeyboard() = 0;

    /// Gives the keyboard back to that window, if the panel still has it.
    virtual void giveKeyboardBack() = 0;

    /// Tells whether one of the program's menus is open, which a press elsewhere only closes: the
    /// panel keeps the keyboard.
    virtual void setMenuOpen(bool open) = 0;

    /// Lets the overlay of a screen capture cover the panel, where the window system does not do so
    /// by itself.
    virtual void setCapturing(bool /*capturing*/) {}

    /// Whether the panel has the keyboard. Asks the window system.
    [[nodiscard]] virtual bool hasKeyboard() const = 0;

    /// Shows one of the program's ordinary windows, above the others and with the keyboard.
    virtual void activate(QWindow *window) = 0;

    /// Whether windows can be transparent. Otherwise the panel has no shadow and its shape has hard
    /// edges.
    [[nodiscard]] virtual bool isComposited() const = 0;

    /// Converts a pointer event's global position (in Qt's points, y down) to a screen point.
    [[nodiscard]] virtual ScreenPoint toScreen(QPointF point) const = 0;

    /// Marks where the panel would be docked, below the panel. An empty frame removes the mark.
    virtual void markPlace(const ScreenRect &frame) = 0;

Q_SIGNALS:
    void compositedChanged();

    /// Another window has taken the keyboard. Also emitted if the panel did not have it.
    void keyboardLost();

    /// The desktop has not given the panel the keyboard that it was to take.
    void keyboardRefused();
};

} // namespace perchly
