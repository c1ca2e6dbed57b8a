#include "SavedLayouts.h"

#include "PreferenceKeys.h"
#include "Preferences.h"
#include "ShelfLibrary.h"
#include "ShelfModel.h"
#include "ShownText.h"
#include "StoredRecords.h"

#include <algorithm>

namespace perchly {

SavedLayouts::SavedLayouts(Preferences &preferences, ShelfLibrary &library, ShelfModel &model,
                           QObject *parent)
    : KeyedRows({"id", "name"}, parent)
    , m_preferences(preferences)
    , m_library(library)
    , m_model(model) {
    const QByteArray stored = preferences.data(keys::savedLayouts).value_or(QByteArray());
    show(decodeRecords<SavedLayout>(stored).value_or(QList<SavedLayout>()));
}

void SavedLayouts::setLayouts(const QList<SavedLayout> &layouts) {
    if (m_preferences.setData(keys::savedLayouts, encodeRecords(layouts))) {
        show(layouts);
    }
}

void SavedLayouts::show(const QList<SavedLayout> &layouts) {
    m_layouts = layouts;
    Rows rows;
    for (const SavedLayout &layout : layouts) {
        const QString id = layout.id.toString();
        rows.append({id, {id, inOneLine(layout.name)}});
    }
    setRows(rows);
}

void SavedLayouts::save(const QString &name) {
    if (!name.trimmed().isEmpty()) {
        setLayouts(m_layouts + QList{SavedLayout{.id = QUuid::createUuid(),
                                                 .name = name.trimmed(),
                                                 .items = m_library.items(),
                                                 .favoritesOnly = m_library.favoritesOnly(),
                                                 .left = widgetTitle(m_model.left()),
                                                 .right = widgetTitle(m_model.right())}});
    }
}

void SavedLayouts::apply(const QUuid &id) {
    const auto layout = std::ranges::find(m_layouts, id, &SavedLayout::id);
    if (layout == m_layouts.cend()) {
        return;
    }
    m_library.setItems(layout->items);
    m_library.setFavoritesOnly(layout->favoritesOnly);
    m_model.setLeftTitle(layout->left);
    m_model.setRightTitle(layout->right);
    m_preferences.setString(keys::leftWidget, widgetTitle(m_model.left()));
    m_preferences.setString(keys::rightWidget, widgetTitle(m_model.right()));
}

void SavedLayouts::remove(const QUuid &id) {
    QList<SavedLayout> layouts = m_layouts;
    if (layouts.removeIf([&id](const SavedLayout &layout) { return layout.id == id; }) > 0) {
        setLayouts(layouts);
    }
}

} // namespace perchly
