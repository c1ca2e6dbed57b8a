#pragma once

#include "PointerMonitor.h"

namespace perchly {

class WaylandPanelHost;

/// The pointer while it is on the panel, or was pressed there. Elsewhere it is `outside`: a
/// compositor reports it only to the program below it, which costs nothing otherwise.
class WaylandPointerMonitor : public PointerMonitor {
    Q_OBJECT
public:
    /// The host must outlive it.
    explicit WaylandPointerMonitor(const WaylandPanelHost &host)
        : m_host(host) {}

    void start() override;
    [[nodiscard]] ScreenPoint position() const override;
    [[nodiscard]] bool isButtonHeld() const override;
    void watch(Watch watch) override { m_watch = watch; }

private:
    const WaylandPanelHost &m_host;
    Watch m_watch = Watch::Nothing;
};

} // namespace perchly
