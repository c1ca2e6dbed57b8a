#pragma once

#include "OpenPanel.h"
#include "SessionBus.h"

#include <memory>

namespace perchly {

/// The desktop's file dialog, shown by its portal; QFileDialog without a portal. To choose files
/// and folders alike that is Qt's own dialog; the portal's shows files only. Needs a QApplication
/// and a window system.
class QtOpenPanel : public OpenPanel {
public:
    explicit QtOpenPanel(std::shared_ptr<SessionBus> bus);

    [[nodiscard]] Task ask(const Request &request, Completion completion) override;

private:
    std::shared_ptr<SessionBus> m_bus;
};

} // namespace perchly
