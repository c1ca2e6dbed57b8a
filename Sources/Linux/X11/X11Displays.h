#pragma once

#include "Displays.h"
#include "StrutWatcher.h"

#include <QTimer>

class QScreen;

namespace perchly {

/// Qt's screens, each with the area that docks and panels leave free. Qt itself has only one such
/// area for the whole desktop, which is wrong with several displays. No display has a camera
/// housing.
class X11Displays : public Displays {
    Q_OBJECT
public:
    X11Displays();

    [[nodiscard]] QList<Display> list() const override;

private:
    void follow(QScreen *screen);
    void announceIfChanged();

    StrutWatcher m_struts;
    QList<Display> m_announced;
    QTimer m_announcement;
};

} // namespace perchly
