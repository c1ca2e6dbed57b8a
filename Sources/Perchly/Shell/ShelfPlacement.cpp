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
    if (m_model.dragging()) {
        return;
    }
    const QList<Display> displays = m_displays.list();
    if (displays.isEmpty()) {
        m_frames.reset();
        return;
    }
    const Display &display = displays.at(m_preferences.display());
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

void ShelfPlacement::place(ShelfSize size) {
    if (m_frames) {
        m_panel.setFrame(frame(size), m_frames->compact, m_model.dockEdge());
    }
}

void ShelfPlacement::dock(ScreenPoint at) {
    const QList<Display> displays = m_displays.list();
    if (displays.isEmpty()) {
        return;
    }
    const auto hit = std::ranges::find_if(
        displays, [at](const Display &display) { return display.frame.contains(at); });
    const qsizetype index =
        hit != displays.cend() ? std::distance(displays.cbegin(), hit) : m_preferences.display();
    m_preferences.dock(dropPlace(at, displays.at(index)), index);
}

} // namespace perchly
