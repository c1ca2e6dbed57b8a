#pragma once

#include "Geometry.h"

#include <optional>

namespace perchly {

class ShelfModel;
class ShelfOpener;
class ShelfPanel;
class ShelfPlacement;

/// Turns a press on the shelf's header into a click, which toggles keyboard mode, or, after 8
/// points of movement, a drag to another position. Positions are the pointer's. The arguments must
/// outlive it. Main thread only.
class ShelfDrag {
public:
    ShelfDrag(ShelfModel &model, ShelfPlacement &placement, ShelfOpener &opener, ShelfPanel &panel);

    void press(ScreenPoint at);
    void move(ScreenPoint to);
    void release(ScreenPoint at);
    /// The press ends without a release: not a click, but a drag still docks the shelf.
    void cancel(ScreenPoint at);

private:
    void begin(ScreenPoint start);
    void end(ScreenPoint at);

    ShelfModel &m_model;
    ShelfPlacement &m_placement;
    ShelfOpener &m_opener;
    ShelfPanel &m_panel;
    std::optional<ScreenPoint> m_start;
    ScreenPoint m_grab; ///< offset from the panel's top left corner, right and down
};

} // namespace perchly
