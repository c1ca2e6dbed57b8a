// Named setups of the shelf.

#include "Hosts.h"
#include "PreferenceKeys.h"
#include "Productivity.h"

#include <algorithm>

namespace perchly {

void Productivity::loadLayouts() {
    const auto stored = m_hosts.preferences->data(keys::savedLayouts);
    // What cannot be read stays stored until a layout is saved or deleted.
    if (const auto decoded = stored ? decodeLayouts(*stored) : std::nullopt) {
        m_layouts = *decoded;
        setLayouts(m_layouts);
    }
}

void Productivity::setLayouts(const QList<SavedLayout> &layouts) {
    if (m_hosts.preferences->setData(keys::savedLayouts, encodeLayouts(layouts))) {
        m_layouts = layouts;
        Q_EMIT layoutsChanged();
    }
}

void Productivity::saveLayout(const QString &name, ShelfLibrary *library, ShelfModel *model) {
    const QString trimmed = name.trimmed();
    if (trimmed.isEmpty()) {
        return;
    }
    QList<SavedLayout> layouts = m_layouts;
    layouts.append({.id = QUuid::createUuid(),
                    .name = trimmed,
                    .items = library->items(),
                    .favoritesOnly = library->favoritesOnly(),
                    .left = widgetTitle(model->left()),
                    .right = widgetTitle(model->right())});
    setLayouts(layouts);
}

void Productivity::apply(const SavedLayout &layout, ShelfLibrary &library, ShelfModel &model) {
    library.setItems(layout.items);
    library.setFavoritesOnly(layout.favoritesOnly);
    model.setLeft(widgetFromTitle(layout.left).value_or(Widget::Clock));
    model.setRight(widgetFromTitle(layout.right).value_or(Widget::Timer));
    m_hosts.preferences->setString(keys::leftWidget, widgetTitle(model.left()));
    m_hosts.preferences->setString(keys::rightWidget, widgetTitle(model.right()));
}

void Productivity::applyLayout(const QUuid &id, ShelfLibrary *library, ShelfModel *model) {
    const auto found = std::ranges::find(m_layouts, id, &SavedLayout::id);
    if (found != m_layouts.cend()) {
        const SavedLayout layout = *found;
        apply(layout, *library, *model);
    }
}

void Productivity::removeLayout(const QUuid &id) {
    QList<SavedLayout> layouts = m_layouts;
    if (layouts.removeIf([&id](const SavedLayout &layout) { return layout.id == id; }) > 0) {
        setLayouts(layouts);
    }
}

} // namespace perchly
