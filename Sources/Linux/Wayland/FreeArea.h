#pragma once

#include "LayerSurface.h"

#include <QRasterWindow>

namespace perchly {

/// How much of a display panels leave free, from the size that the compositor gives to a surface
/// that fills it, with one transparent pixel. Where the free area is, Wayland does not tell. Main
/// thread only.
class FreeArea : public QRasterWindow {
    Q_OBJECT
public:
    /// Both must outlive it.
    FreeArea(WaylandConnection &connection, QScreen &screen);

    /// In points.
    [[nodiscard]] QSize freeSize() const { return m_role.assignedSize(); }

Q_SIGNALS:
    void changed();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    LayerSurface m_role;
};

} // namespace perchly
