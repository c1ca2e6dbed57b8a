#include "ShelfPlacement.h"

#include "ShelfModel.h"
#include "ShelfPanel.h"
#include "ShelfPreferences.h"

#include <algorithm>

namespace perchly {

ShelfPlacement::ShelfPlacement(Displays &displays, ShelfPreferences &preferences, ShelfModel &model,
                               ShelfPanel &panel)
    : m_displays(displays)
    , m_preferences(preferences)
    , m_model(model)
    , m_panel(panel) {}

void ShelfPlacement::update() {
    if (m_displays.list().isEmpty()) {
        m_frames.reset();
        return;
    }
    if (m_model.dragging()) {
        return;
    }
    m_panel.setOverPanels(m_preferences.overPanels());
    const Display display = this->display(m_preferences.display());
    const ShelfPosition position = m_preferences.position();
    const CompactSize compact = compactSize(position, display);
    m_model.setDockEdge(position.edge);
    m_model.setHardwareNotchWidth(compact.notchWidth);
    m_model.setCompactWidth(compact.width);
    m_model.setCompactHeight(compact.height);
    const auto frameFor = [&](ShelfSize size) {
        return shelfFrame(size, position, m_preferences.scale(), display);
    };
    m_frames = {frameFor(ShelfSize::Compact), frameFor(ShelfSize::Expanded)};
    place(m_model.expanded() ? ShelfSize::Expanded : ShelfSize::Compact);
}

ScreenRect ShelfPlacement::frame(ShelfSize size) const {
    if (!m_frames) {
        return {};
    }
    return size == ShelfSize::Compact ? m_frames->compact : m_frames->expanded;
}

double ShelfPlacement::coveredHeight() const {
    if (!m_frames || m_model.dockEdge() != ShelfEdge::Top) {
        return 0;
    }
    return display(m_preferences.display()).frame.maxY() - m_frames->compact.minY();
}

void ShelfPlacement::place(ShelfSize size) {
    if (m_frames) {
        m_panel.setFrame(frame(size), m_frames->compact, m_model.dockEdge());
    }
}

void ShelfPlacement::dock(ScreenPoint at) {
    if (const auto index = displayAt(at)) {
        m_preferences.dock(dropPlace(at, display(*index)), *index);
    } else { // the display has gone: back to where it was
        update();
    }
}

ScreenRect ShelfPlacement::dockFrame(ScreenPoint at) const {
    if (!m_frames) {
        return {};
    }
    const Display target = display(displayAt(at).value_or(m_preferences.display()));
    return shelfFrame(ShelfSize::Compact, dropPlace(at, target), 1, target);
}

ScreenRect ShelfPlacement::movedInside(const ScreenRect &frame, ScreenPoint at) const {
    if (!m_frames) {
        return frame;
    }
    const ScreenRect area = display(displayAt(at).value_or(m_preferences.display())).frame;
    return {std::clamp(frame.x, area.minX(), std::max(area.minX(), area.maxX() - frame.width)),
            std::clamp(frame.y, area.minY(), std::max(area.minY(), area.maxY() - frame.height)),
            frame.width, frame.height};
}

std::optional<qsizetype> ShelfPlacement::displayAt(ScreenPoint point) const {
    const QList<Display> displays = m_displays.list();
    const auto hit = std::ranges::find_if(
        displays, [point](const Display &display) { return display.frame.contains(point); });
    return hit != displays.cend() ? std::optional(std::distance(displays.cbegin(), hit))
                                  : std::nullopt;
}

/// With the panels at the edges visible if the shelf covers them.
Display ShelfPlacement::display(qsizetype index) const {
    Display display = m_displays.list().at(index);
    if (m_preferences.overPanels()) {
        const ScreenRect &whole = display.frame;
        const double bottom = display.visibleFrame.minY();
        display.visibleFrame = {whole.x, bottom, whole.width, whole.maxY() - bottom};
    }
    return display;
}

} // namespace perchly
