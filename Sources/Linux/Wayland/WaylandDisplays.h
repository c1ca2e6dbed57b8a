#pragma once

#include "Displays.h"

#include <QTimer>

class QScreen;

namespace perchly {

/// Qt's screens, named by their connectors. The compositor does not report the areas that panels
/// reserve.
class WaylandDisplays : public Displays {
    Q_OBJECT
public:
    WaylandDisplays();

    [[nodiscard]] QList<Display> list() const override;

private:
    void follow(QScreen *screen);

    QTimer m_announcement; ///< Qt reports one change several times
};

} // namespace perchly
