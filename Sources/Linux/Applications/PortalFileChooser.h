#pragma once

#include "OpenPanel.h"
#include "PortalRequest.h"

#include <memory>
#include <optional>

class QWindow;

namespace perchly {

/// The chosen files, none if the user cancelled, or nullopt if the portal shows no dialog.
using ChosenFiles = std::function<void(const std::optional<QList<QUrl>> &chosen)>;

/// Asks in the desktop's file dialog, through the portal, above the window, if any. `completion` is
/// called once, never before this has returned, and may destroy the request. Main thread only.
[[nodiscard]] std::unique_ptr<PortalRequest> chooseByPortal(const QDBusConnection &bus,
                                                            const OpenPanel::Request &request,
                                                            const QWindow *window,
                                                            ChosenFiles completion);

} // namespace perchly
