#pragma once

#include "OpenPanel.h"

namespace perchly {

/// QFileDialog, which shows the desktop's dialog where Qt has a theme plugin or portal for it. No
/// desktop's dialog can choose files and folders alike, so Qt draws that one. Needs a QApplication
/// and a window system.
class QtOpenPanel : public OpenPanel {
public:
    [[nodiscard]] Task ask(const Request &request, Completion completion) override;
};

} // namespace perchly
