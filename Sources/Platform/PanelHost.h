#pragma once

#include "Geometry.h"

#include <QMarginsF>
#include <QObject>
#include <QPointF>

class QRegion;
class QWindow;

namespace perchly {

/// What the window system does for the shelf panel beyond an ordinary window: it floats above
/// everything on every workspace, is never activated by being shown or clicked, and can
/// nevertheless be given the keyboard. Main thread only.
class PanelHost : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    /// Prepares the panel's window. Call it once, before the window is first shown.
    virtual void attach(QWindow *panel) = 0;

    /// Moves the panel to the frame at once. The window is larger than the frame by the margins,
    /// which hold its shadow. A shape that was set is forgotten when the size changes: set the one
    /// that belongs to the new size right afterwards.
    virtual void place(const ScreenRect &frame, const QMarginsF &margins) = 0;

    /// Shows the panel above the other windows without taking the keyboard.
    virtual void orderFront() = 0;

    /// Where the panel takes the pointer, in the window's own device pixels (y down). Elsewhere
    /// clicks go to what lies below. Without transparency it is also all that is painted.
    virtual void setShape(const QRegion &shape) = 0;

    /// Gives the panel the keyboard and remembers who had it.
    virtual void takeKeyboard() = 0;

    /// Gives the keyboard back to the window that had it, if the panel still has it.
    virtual void giveKeyboardBack() = 0;

    /// The panel has the keyboard now.
    [[nodiscard]] virtual bool hasKeyboard() const = 0;

    /// Shows one of the program's ordinary windows, above the others and with the keyboard.
    virtual void activate(QWindow *window) = 0;

    /// Whether windows can be transparent here. Without it the panel has no shadow, and the edge of
    /// its shape has whole pixels.
    [[nodiscard]] virtual bool isComposited() const = 0;

    /// Where a place on the screen is that the toolkit names (its points, y down): the place of a
    /// pointer event in the panel.
    [[nodiscard]] virtual ScreenPoint toScreen(QPointF point) const = 0;

Q_SIGNALS:
    void compositedChanged();
};

} // namespace perchly
