#pragma once

#include "Displays.h"
#include "FreeArea.h"

#include <QTimer>

#include <map>
#include <memory>

class QScreen;

namespace perchly {

/// Qt's screens, named by their connectors. A visible frame has the size of the area that panels
/// leave free; as Wayland does not tell where that is, it starts at the display's top left corner.
class WaylandDisplays : public Displays {
    Q_OBJECT
public:
    explicit WaylandDisplays(std::shared_ptr<WaylandConnection> connection);

    [[nodiscard]] QList<Display> list() const override;

    /// Lets the visible frames be whole displays, or not.
    void setOverPanels(bool over) { m_isOverPanels = over; }

    /// In Qt's points.
    [[nodiscard]] QRect freeArea(QScreen &screen) const;

private:
    void follow(QScreen *screen);
    void announceIfChanged();

    std::shared_ptr<WaylandConnection> m_connection;
    std::map<const QScreen *, FreeArea> m_areas;
    bool m_isOverPanels = false;
    QList<Display> m_announced;
    QPoint m_firstCorner;  ///< of the first display, in Qt's points
    QTimer m_announcement; ///< Qt reports one change several times
};

} // namespace perchly
