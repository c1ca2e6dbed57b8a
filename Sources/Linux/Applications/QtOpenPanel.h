#pragma once

#include "OpenPanel.h"

namespace perchly {

/// QFileDialog, which shows the desktop's dialog if Qt has a theme plugin or portal for it. Qt
/// draws the dialog that chooses files and folders alike, which no desktop's dialog can. Needs a
/// QApplication and a window system.
class QtOpenPanel : public OpenPanel {
public:
    [[nodiscard]] Task ask(const Request &request, Completion completion) override;
};

} // namespace perchly
