#pragma once

#include "OpenPanel.h"

namespace perchly {

/// The toolkit's file dialog, which is the desktop's own where the desktop lends it to the toolkit
/// (by its theme plugin or its portal). A choice among files and folders alike is one that no
/// desktop's dialog knows; there the toolkit draws it. Needs a QApplication and a window system.
class QtOpenPanel : public OpenPanel {
public:
    [[nodiscard]] Task ask(const Request &request, Completion completion) override;
};

} // namespace perchly
