#pragma once

#include "Geometry.h"

#include <QList>
#include <QObject>
#include <QString>

#include <optional>

namespace perchly {

/// One attached display.
struct Display {
    QString name = {};       ///< as the user knows it
    QString connector = {};  ///< where it is plugged in, such as HDMI-1
    ScreenRect frame;        ///< the whole display
    ScreenRect visibleFrame; ///< without the area that docks and panels reserve on it
    /// Height of a camera housing at the top, or 0, and the usable areas beside it.
    double safeAreaTop = 0;
    std::optional<ScreenRect> auxiliaryTopLeftArea = std::nullopt;
    std::optional<ScreenRect> auxiliaryTopRightArea = std::nullopt;

    bool operator==(const Display &) const = default;
};

/// The attached displays, the primary one first. Main thread only.
class Displays : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    /// In the system's order; empty if there is no display.
    [[nodiscard]] virtual QList<Display> list() const = 0;

Q_SIGNALS:
    /// Displays, their arrangement, resolution or reserved areas changed. list() is current.
    void changed();
};

} // namespace perchly
