#pragma once

#include "ScreenCapture.h"
#include "SessionBus.h"
#include "Workers.h"

#include <memory>

namespace perchly {

/// Captures through the desktop portal, whose dialog lets the user choose what to capture. The
/// portal keeps its own file.
class PortalScreenCapture : public ScreenCapture {
public:
    explicit PortalScreenCapture(std::shared_ptr<SessionBus> bus);

    [[nodiscard]] Task captureRegion(const QString &path, Completion completion) override;

private:
    std::shared_ptr<SessionBus> m_bus;
    Workers m_workers{1};
};

} // namespace perchly
