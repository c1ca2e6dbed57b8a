#include "ShelfPlacement.h"

#include "PreferenceKeys.h"
#include "Preferences.h"
#include "ShelfModel.h"
#include "ShelfPanel.h"
#include "ShelfPreferences.h"

#include <algorithm>

namespace perchly {

ShelfPlacement::ShelfPlacement(Displays &displays, Preferences &preferences,
                               const ShelfPreferences &shelfPreferences, ShelfModel &model,
                               ShelfPanel &panel)
    : m_displays(displays)
    , m_preferences(preferences)
    , m_shelfPreferences(shelfPreferences)
    , m_model(model)
    , m_panel(panel) {}

std::optional<qsizetype> ShelfPlacement::displayIndex(const QList<Display> &displays) const {
    if (displays.isEmpty()) {
        return std::nullopt;
    }
    const qint64 stored = m_preferences.wholeNumber(keys::displayIndex).value_or(0);
    return std::clamp<qint64>(stored, 0, displays.size() - 1);
}

void ShelfPlacement::update() {
    if (m_model.dragging()) {
        return;
    }
    const QList<Display> displays = m_displays.list();
    const auto index = displayIndex(displays);
    m_display = index ? std::optional(displays.at(*index)) : std::nullopt;
    if (!m_display) {
        return;
    }
    const QString edge = m_preferences.string(keys::shelfEdge).value_or(QString());
    m_position = {shelfEdgeFromName(edge).value_or(ShelfEdge::Top),
                  m_preferences.number(keys::shelfEdgePosition).value_or(0.5)};
    const CompactSize compact = compactSize(m_position, *m_display);
    m_model.setDockEdge(m_position.edge);
    m_model.setHardwareNotchWidth(compact.notchWidth);
    m_model.setCompactWidth(compact.width);
    m_model.setCompactHeight(compact.height);
    place(m_model.expanded() ? ShelfSize::Expanded : ShelfSize::Compact);
}

ScreenRect ShelfPlacement::frame(ShelfSize size) const {
    return m_display ? shelfFrame(size, m_position, m_shelfPreferences.scale(), *m_display)
                     : ScreenRect{};
}

void ShelfPlacement::place(ShelfSize size) {
    if (m_display) {
        m_panel.setFrame(frame(size), frame(ShelfSize::Compact), m_position.edge);
    }
}

void ShelfPlacement::dock(ScreenPoint at) {
    const QList<Display> displays = m_displays.list();
    const auto hit = std::ranges::find_if(
        displays, [at](const Display &display) { return display.frame.contains(at); });
    const auto index = hit != displays.cend() ? std::optional(std::distance(displays.cbegin(), hit))
                                              : displayIndex(displays);
    if (index) {
        const ShelfPosition position = dropPlace(at, displays.at(*index));
        m_preferences.setValues({{keys::shelfEdge, shelfEdgeName(position.edge)},
                                 {keys::shelfEdgePosition, position.position},
                                 {keys::displayIndex, double(*index)}});
        update();
    }
}

} // namespace perchly
