#pragma once

#include "OpenPanel.h"

namespace perchly {

/// QFileDialog, which shows the desktop's dialog if Qt has a theme plugin or portal for it. To
/// choose files and folders alike it shows Qt's dialog, as the desktops' cannot. Needs a
/// QApplication and a window system.
class QtOpenPanel : public OpenPanel {
public:
    [[nodiscard]] Task ask(const Request &request, Completion completion) override;
};

} // namespace perchly
