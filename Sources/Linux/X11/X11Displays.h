#pragma once

#include "Displays.h"
#include "StrutWatcher.h"

#include <QTimer>

class QScreen;

namespace perchly {

/// The displays as the toolkit sees them, each with the area that docks and desktop panels leave of
/// it. The toolkit itself knows one such area for the whole desktop, which is wrong for all but one
/// display. There is no camera housing here.
class X11Displays : public Displays {
    Q_OBJECT
public:
    explicit X11Displays(QObject *parent = nullptr);

    [[nodiscard]] QList<Display> list() const override;

private:
    void follow(QScreen *screen);
    void announceIfChanged();

    StrutWatcher m_struts;
    QList<Display> m_announced;
    QTimer m_announcement;
};

} // namespace perchly
