#pragma once

#include "Geometry.h"

#include <QMarginsF>
#include <QObject>
#include <QPointF>

class QRegion;
class QWindow;

namespace perchly {

/// What sets the shelf's panel apart from an ordinary window: it stays above everything on every
/// workspace, is not activated by being shown or clicked, and can still get the keyboard. Main
/// thread only.
class PanelHost : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    /// Creates and prepares the panel's window. Call it once, before anything else.
    virtual void attach(QWindow *panel) = 0;

    /// Moves the panel to the frame at once. The window is larger than the frame by the margins,
    /// which hold its shadow. A new size removes the shape: set the new one right afterwards.
    virtual void place(const ScreenRect &frame, const QMarginsF &margins) = 0;

    /// Shows the panel above the other windows without taking the keyboard.
    virtual void orderFront() = 0;

    /// Where the panel takes the pointer, in the window's device pixels (y down). Elsewhere clicks
    /// go to the window below. Without transparency, nothing else is painted either.
    virtual void setShape(const QRegion &shape) = 0;

    /// Gives the panel the keyboard and remembers which window had it.
    virtual void takeKeyboard() = 0;

    /// Gives the keyboard back to the window that had it, if the panel still has it.
    virtual void giveKeyboardBack() = 0;

    /// Whether the panel has the keyboard. Asks the window system.
    [[nodiscard]] virtual bool hasKeyboard() const = 0;

    /// Shows one of the program's ordinary windows, above the others and with the keyboard.
    virtual void activate(QWindow *window) = 0;

    /// Whether windows can be transparent. Without it the panel has no shadow and its shape has
    /// hard edges.
    [[nodiscard]] virtual bool isComposited() const = 0;

    /// The screen point of a pointer event's global position (in Qt's points, y down).
    [[nodiscard]] virtual ScreenPoint toScreen(QPointF point) const = 0;

Q_SIGNALS:
    void compositedChanged();
};

} // namespace perchly
