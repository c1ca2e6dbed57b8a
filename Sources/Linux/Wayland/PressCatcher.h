#pragma once

#include "LayerSurface.h"

#include <QRegion>
#include <QWindow>

struct wl_buffer;

namespace perchly {

/// A transparent surface over a display. Reports a press of a mouse button outside an area that it
/// leaves to other surfaces. Main thread only.
class PressCatcher : public QWindow {
    Q_OBJECT
public:
    enum class Place {
        Display,  ///< above all windows
        FreeArea, ///< the same where panels leave the display free
        Panels,   ///< above panels and ordinary windows
    };

    /// The size and the area are in points from that place. The first two must outlive it.
    PressCatcher(WaylandConnection &connection, QScreen &screen, Place place, QSize size,
                 const QRegion &free);
    ~PressCatcher() override;

Q_SIGNALS:
    void pressed();

protected:
    void mousePressEvent(QMouseEvent *event) override;

private:
    void attachBuffer(const WaylandConnection &connection);

    LayerSurface m_role;
    wl_buffer *m_buffer = nullptr;
};

} // namespace perchly
