#include "ShelfDrag.h"

#include "ShelfModel.h"
#include "ShelfOpener.h"
#include "ShelfPanel.h"
#include "ShelfPlacement.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace perchly {

namespace {

constexpr double dragThreshold = 8;

} // namespace

ShelfDrag::ShelfDrag(ShelfModel &model, ShelfPlacement &placement, ShelfOpener &opener,
                     ShelfPanel &panel)
    : m_model(model)
    , m_placement(placement)
    , m_opener(opener)
    , m_panel(panel) {}

void ShelfDrag::press(ScreenPoint at) {
    m_start = at;
}

void ShelfDrag::move(ScreenPoint to) {
    if (!m_start) {
        return;
    }
    if (!m_model.dragging()) {
        if (std::hypot(to.x - m_start->x, to.y - m_start->y) < dragThreshold) {
            return;
        }
        begin(*m_start);
    }
    const double height = m_model.compactHeight();
    const ScreenRect frame{to.x - m_grab.x, to.y + m_grab.y - height, m_model.compactWidth(),
                           height};
    const ScreenRect inside = m_placement.movedInside(frame, to);
    m_panel.carry(inside);
    m_panel.markPlace(m_placement.dockFrame(to));
}

void ShelfDrag::release(ScreenPoint at) {
    move(at); // the release may come without an earlier movement
    if (!std::exchange(m_start, std::nullopt)) {
        return;
    }
    if (m_model.dragging()) {
        end(at);
    } else {
        m_opener.toggleKeyboardOpen();
    }
}

void ShelfDrag::cancel(ScreenPoint at) {
    m_start.reset();
    if (m_model.dragging()) {
        end(at);
    }
}

void ShelfDrag::begin(ScreenPoint start) {
    // The panel's actual frame: for a moment after a collapse it is still the large one.
    const ScreenRect frame = m_panel.frame();
    const double width = m_model.compactWidth();
    const double height = m_model.compactHeight();
    m_grab = m_model.dockEdge() == ShelfEdge::Top
                 ? ScreenPoint{std::clamp(start.x - frame.minX(), 0.0, width),
                               std::clamp(frame.maxY() - start.y, 0.0, height)}
                 : ScreenPoint{width / 2, height / 2};
    m_model.setDragging(true);
    m_opener.closeForDrag();
}

void ShelfDrag::end(ScreenPoint at) {
    m_model.setDragging(false);
    m_panel.markPlace({});
    m_opener.returnKeyboard();
    m_placement.dock(at);
}

} // namespace perchly
