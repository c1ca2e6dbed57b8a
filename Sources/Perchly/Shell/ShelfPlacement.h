#pragma once

#include "ShelfGeometry.h"

#include <optional>

namespace perchly {

class ShelfModel;
class ShelfPanel;
class ShelfPreferences;

/// Where the shelf is: its display, its place on that, and the panel's frames. All arguments must
/// outlive it. Main thread only.
class ShelfPlacement {
public:
    ShelfPlacement(Displays &displays, ShelfPreferences &preferences, ShelfModel &model,
                   ShelfPanel &panel);

    /// Follows a change of displays or preferences, unless the panel is being dragged.
    void update();

    /// The panel's frame in either size; empty without a display.
    [[nodiscard]] ScreenRect frame(ShelfSize size) const;

    /// Moves the panel to the frame of that size.
    void place(ShelfSize size);

    /// Docks the shelf at the place nearest to the point and stores that.
    void dock(ScreenPoint at);

private:
    struct Frames {
        ScreenRect compact;
        ScreenRect expanded;
    };

    Displays &m_displays;
    ShelfPreferences &m_preferences;
    ShelfModel &m_model;
    ShelfPanel &m_panel;
    std::optional<Frames> m_frames; ///< none without a display
};

} // namespace perchly
