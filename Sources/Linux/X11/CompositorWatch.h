#pragma once

#include "XcbConnection.h"

namespace perchly {

/// Reports whether a compositor runs, by the owner of the compositor selection. Main thread only.
class CompositorWatch : public QObject {
    Q_OBJECT
public:
    explicit CompositorWatch(XcbConnection &connection);

    [[nodiscard]] bool isRunning() const { return m_isRunning; }

Q_SIGNALS:
    void changed();

private:
    void handleEvent(const xcb_generic_event_t *event);
    void setRunning(bool isRunning);

    xcb_atom_t m_selection;
    quint8 m_firstEvent = 0;
    bool m_isRunning = false;
};

} // namespace perchly
