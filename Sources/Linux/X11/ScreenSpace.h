#pragma once

#include "Geometry.h"

#include <QList>
#include <QPoint>
#include <QRect>

namespace perchly {

/// Converts between the X server's pixels, Qt's points (y down) and the program's points (y up from
/// the bottom left of the primary display).
///
/// Qt leaves the top left corner of a display where the X server has it and divides only the
/// display's size by its pixel ratio.
class ScreenSpace {
public:
    struct Screen {
        QRect geometry; ///< in Qt's points
        double pixelRatio = 1;
    };

    /// The primary display comes first. Without displays, a pixel is a point.
    explicit ScreenSpace(QList<Screen> screens);

    /// The current displays. Main thread only.
    [[nodiscard]] static ScreenSpace current();

    /// The bottom left corner of a pixel, so that the topmost row is inside the display and the row
    /// below a rectangle is outside it. Uses the scale of the nearest display.
    [[nodiscard]] ScreenPoint fromPixels(QPoint pixels) const;

    /// The display's area in pixels, and an area of that display in the program's points.
    [[nodiscard]] static QRect pixelGeometry(const Screen &screen);
    [[nodiscard]] ScreenRect fromPixels(const QRect &pixels, const Screen &screen) const;

    [[nodiscard]] ScreenPoint fromQt(QPointF point) const;
    [[nodiscard]] ScreenRect fromQt(const QRectF &rect) const;

    /// Rounds each edge to a whole point, so that an edge on a display's edge stays there.
    [[nodiscard]] QRect toQt(const ScreenRect &rect) const;

    [[nodiscard]] const QList<Screen> &screens() const { return m_screens; }

private:
    QList<Screen> m_screens;
    QPointF m_origin; ///< the primary display's bottom left corner in Qt's points
};

} // namespace perchly
