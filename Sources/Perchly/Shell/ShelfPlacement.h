#pragma once

#include "ShelfGeometry.h"

#include <optional>

namespace perchly {

class ShelfModel;
class ShelfPanel;
class ShelfPreferences;

/// Places the shelf: its display, its position there, and the panel's frames. The arguments must
/// outlive it. Main thread only.
class ShelfPlacement {
public:
    ShelfPlacement(Displays &displays, ShelfPreferences &preferences, ShelfModel &model,
                   ShelfPanel &panel);

    /// Applies a change of displays or preferences, unless the panel is being dragged.
    void update();

    /// The panel's frame in either size; empty if there is no display.
    [[nodiscard]] ScreenRect frame(ShelfSize size) const;

    /// Points at the top of its display that the collapsed shelf covers, with any panel above it; 0
    /// at a side.
    [[nodiscard]] double coveredHeight() const;

    /// Moves the panel to the frame of that size.
    void place(ShelfSize size);

    /// Docks the shelf at the position nearest to the point and stores that position. Puts it back
    /// if the point is on no display.
    void dock(ScreenPoint at);

    /// The collapsed shelf's frame after dock().
    [[nodiscard]] ScreenRect dockFrame(ScreenPoint at) const;

    /// Moves a frame into the display with that point.
    [[nodiscard]] ScreenRect movedInside(const ScreenRect &frame, ScreenPoint at) const;

private:
    struct Frames {
        ScreenRect compact;
        ScreenRect expanded;
    };

    [[nodiscard]] std::optional<qsizetype> displayAt(ScreenPoint point) const;
    [[nodiscard]] Display display(qsizetype index) const;

    Displays &m_displays;
    ShelfPreferences &m_preferences;
    ShelfModel &m_model;
    ShelfPanel &m_panel;
    std::optional<Frames> m_frames; ///< nullopt if there is no display
};

} // namespace perchly
