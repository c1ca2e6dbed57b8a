#pragma once

#include "Geometry.h"

#include <optional>

namespace perchly {

class AppDelegate;

/// Tells a click on the shelf's header from a drag. A press that moves less than 8 points before
/// its release is a click and toggles keyboard mode; from 8 points on it drags the shelf. Positions
/// are the pointer's. Main thread only.
class ShelfHeaderView {
public:
    /// The delegate must outlive this object.
    explicit ShelfHeaderView(AppDelegate &delegate);

    void press(ScreenPoint at);
    void move(ScreenPoint to);
    void release(ScreenPoint at);
    /// The press ends without a release.
    void cancel(ScreenPoint at);

private:
    AppDelegate &m_delegate;
    std::optional<ScreenPoint> m_start;
    bool m_dragStarted = false;
};

} // namespace perchly
