// Dragging the shelf to another place.

#include "AppDelegate.h"
#include "Hosts.h"
#include "PreferenceKeys.h"

#include <algorithm>
#include <cmath>

namespace perchly {

void AppDelegate::beginShelfDrag(ScreenPoint start) {
    // The panel's own frame: for a moment after a collapse it is still the large one.
    const ScreenRect frame = m_panel ? m_panel->frame() : shelfFrame(ShelfSize::Compact);
    m_closeTask.reset();
    m_settleTask.reset();
    if (m_keyboardOpen) {
        m_keyboardOpen = false;
        m_hosts.panel->giveKeyboardBack();
    }
    returnKeyboard();
    m_model.setDragging(true);

    const double width = m_model.compactWidth();
    const double height = m_model.compactHeight();
    m_dragOffset = m_model.dockEdge() == ShelfEdge::Top
                       ? ScreenPoint{std::min(std::max(start.x - frame.minX(), 0.0), width),
                                     std::min(std::max(frame.maxY() - start.y, 0.0), height)}
                       : ScreenPoint{width / 2, height / 2};
    m_model.setExpanded(false);
    m_hosts.pointer->setPolling(false);
    moveShelfDrag(start);
}

void AppDelegate::moveShelfDrag(ScreenPoint pointer) {
    if (!m_model.dragging()) {
        return;
    }
    const double width = m_model.compactWidth();
    const double height = m_model.compactHeight();
    const ScreenRect frame{pointer.x - m_dragOffset.x, pointer.y + m_dragOffset.y - height, width,
                           height};
    setPanelFrame(frame, frame);
}

void AppDelegate::endShelfDrag(ScreenPoint point) {
    if (!m_model.dragging()) {
        return;
    }
    m_model.setDragging(false);

    const QList<Display> displays = m_hosts.displays->list();
    auto display = std::ranges::find_if(
        displays, [point](const Display &candidate) { return candidate.frame.contains(point); });
    if (display == displays.cend()) {
        const auto current = shelfScreen();
        if (!current) {
            return;
        }
        display = std::ranges::find(displays, *current);
    }

    ShelfPosition place = ShelfPosition::drop(point, display->frame, display->visibleFrame);
    const auto gap = notchGap(geometryOf(*display));
    if (place.edge == ShelfEdge::Top && gap &&
        std::abs(point.x - display->frame.midX()) < notchSnapDistance(*gap)) {
        place.position = 0.5;
    }
    m_hosts.preferences->setValues(
        {{keys::shelfEdge, shelfEdgeName(place.edge)},
         {keys::shelfEdgePosition, place.position},
         {keys::displayIndex, double(std::distance(displays.cbegin(), display))}});
    resize();
}

ScreenPoint AppDelegate::handlePosition() const {
    const auto event = m_panel ? m_panel->eventPosition() : std::nullopt;
    return event ? *event : m_hosts.pointer->position();
}

void AppDelegate::handlePressed() {
    m_headerView.press(handlePosition());
}

void AppDelegate::handleMoved() {
    m_headerView.move(handlePosition());
}

void AppDelegate::handleReleased() {
    m_headerView.release(handlePosition());
}

void AppDelegate::handleCanceled() {
    m_headerView.cancel(handlePosition());
}

} // namespace perchly
