// Where the shelf is: its display, its edge, its frames.

#include "AppDelegate.h"
#include "Hosts.h"
#include "PreferenceKeys.h"

#include <algorithm>

namespace perchly {

DisplayGeometry AppDelegate::geometryOf(const Display &display) {
    return {.frame = display.frame,
            .visibleFrame = display.visibleFrame,
            .safeAreaTop = display.safeAreaTop,
            .auxiliaryTopLeftArea = display.auxiliaryTopLeftArea,
            .auxiliaryTopRightArea = display.auxiliaryTopRightArea};
}

std::optional<Display> AppDelegate::shelfScreen() const {
    const QList<Display> displays = m_hosts.displays->list();
    if (displays.isEmpty()) {
        return std::nullopt;
    }
    const qint64 stored = m_hosts.preferences->wholeNumber(keys::displayIndex).value_or(0);
    return displays.at(std::clamp<qint64>(stored, 0, displays.size() - 1));
}

ShelfPosition AppDelegate::dockPosition() const {
    const QString stored = m_hosts.preferences->string(keys::shelfEdge).value_or(QString());
    return {shelfEdgeFromName(stored).value_or(ShelfEdge::Top),
            m_hosts.preferences->number(keys::shelfEdgePosition).value_or(0.5)};
}

void AppDelegate::resize() {
    const auto display = shelfScreen();
    if (!display || m_model.dragging()) {
        return;
    }
    const ShelfPosition place = dockPosition();
    const CompactSize compact = compactSize(place, geometryOf(*display));
    m_model.setDockEdge(place.edge);
    m_model.setHardwareNotchWidth(compact.notchWidth);
    m_model.setCompactWidth(compact.width);
    m_model.setCompactHeight(compact.height);
    placePanel(m_model.expanded() ? ShelfSize::Expanded : ShelfSize::Compact);
}

ScreenRect AppDelegate::shelfFrame(ShelfSize size) const {
    const auto display = shelfScreen();
    if (!display) {
        return {};
    }
    const CompactSize compact{m_model.compactWidth(), m_model.compactHeight(),
                              m_model.hardwareNotchWidth()};
    return perchly::shelfFrame(size, m_model.dockEdge(), dockPosition(), compact,
                               m_shelfPreferences.shelfScale(), geometryOf(*display));
}

void AppDelegate::placePanel(ShelfSize size) {
    if (shelfScreen()) {
        setPanelFrame(shelfFrame(size), shelfFrame(ShelfSize::Compact));
    }
}

void AppDelegate::setPanelFrame(const ScreenRect &frame, const ScreenRect &compactFrame) {
    if (m_panel) {
        m_panel->setFrame(frame, compactFrame, m_model.dockEdge());
    }
}

} // namespace perchly
