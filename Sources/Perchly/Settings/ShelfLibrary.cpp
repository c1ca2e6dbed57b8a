#include "ShelfLibrary.h"

#include "ApplicationCatalog.h"
#include "OpenPanel.h"
#include "PreferenceKeys.h"
#include "Preferences.h"
#include "StoredRecords.h"
#include "TextSearch.h"

#include <QPointer>
#include <QUrl>

#include <algorithm>
#include <utility>
#include <vector>

namespace perchly {

namespace {

QList<ShelfItem> defaultItems() {
    QList<ShelfItem> items;
    for (const Widget widget : allWidgets) {
        items.append(ShelfItem::forWidget(widget));
    }
    return items;
}

QList<ShelfItem> itemsFor(const QList<FoundApplication> &applications) {
    QList<ShelfItem> items;
    items.reserve(applications.size());
    for (const FoundApplication &application : applications) {
        items.append(ShelfItem::forApplication(application.path, application.name));
    }
    return items;
}

} // namespace

ShelfLibrary::ShelfLibrary(Preferences &preferences, ApplicationCatalog &catalog,
                           OpenPanel &openPanel, QObject *parent)
    : KeyedRows({"entry"}, parent)
    , m_preferences(preferences)
    , m_catalog(catalog)
    , m_openPanel(openPanel) {
    connect(&catalog, &ApplicationCatalog::changed, this, &ShelfLibrary::refresh);
    const QByteArray stored = preferences.data(keys::shelfLibrary).value_or(QByteArray());
    show(decodeRecords<ShelfItem>(stored).value_or(defaultItems()));
    setFavoritesOnly(preferences.boolean(keys::favoritesOnly).value_or(false));
}

void ShelfLibrary::setItems(const QList<ShelfItem> &items) {
    if (m_preferences.setData(keys::shelfLibrary, encodeRecords(items))) {
        show(items);
    }
}

void ShelfLibrary::show(const QList<ShelfItem> &items) {
    m_items = items;
    Rows rows;
    for (const ShelfItem &item : items) {
        rows.append({item.id, {QVariant::fromValue(item)}});
    }
    setRows(rows);
    Q_EMIT itemsChanged();
    Q_EMIT shownChanged();
}

bool ShelfLibrary::someRemovable() const {
    return std::ranges::any_of(m_items, &ShelfItem::removable);
}

void ShelfLibrary::setFavoritesOnly(bool favoritesOnly) {
    m_favoritesOnly = favoritesOnly;
    m_preferences.setBoolean(keys::favoritesOnly, favoritesOnly);
    Q_EMIT shownChanged();
}

QList<ShelfItem> ShelfLibrary::shown() const {
    QList<ShelfItem> result;
    std::ranges::copy_if(m_items, std::back_inserter(result), [this](const ShelfItem &item) {
        return item.visible && (item.favorite || !m_favoritesOnly);
    });
    return result;
}

void ShelfLibrary::refresh() {
    m_catalog.find([self = QPointer(this)](const QList<FoundApplication> &applications) {
        if (ShelfLibrary *library = self.data()) {
            library->m_installed = itemsFor(applications);
            library->m_searchTexts.clear();
            for (const FoundApplication &found : applications) {
                library->m_searchTexts.append(found.searchText);
            }
            Q_EMIT library->installedChanged();
        }
    });
}

QList<ShelfItem> ShelfLibrary::installedMatching(const QString &search) const {
    if (search.isEmpty()) {
        return m_installed;
    }
    const QString folded = foldedForSearch(search);
    std::vector<std::pair<int, qsizetype>> matches; // rank and place
    for (qsizetype place = 0; place < m_searchTexts.size(); ++place) {
        if (const auto rank = matchRank(m_searchTexts.at(place), folded)) {
            matches.emplace_back(*rank, place);
        }
    }
    std::ranges::sort(matches);
    QList<ShelfItem> items;
    items.reserve(qsizetype(matches.size()));
    for (const auto &[rank, place] : matches) {
        items.append(m_installed.at(place));
    }
    return items;
}

void ShelfLibrary::browse() {
    m_browsing = m_openPanel.ask({.title = tr("Choose applications"),
                                  .confirmLabel = tr("Add to shelf"),
                                  .folder = m_catalog.startFolder(),
                                  .choice = OpenPanel::Choice::Applications},
                                 [this](const QList<QUrl> &urls) { addChosen(urls); });
}

void ShelfLibrary::addChosen(const QList<QUrl> &urls) {
    QStringList paths;
    for (const QUrl &url : urls) {
        if (url.isLocalFile()) {
            paths.append(url.toLocalFile());
        }
    }
    if (paths.isEmpty()) {
        return;
    }
    m_catalog.describe(paths, [self = QPointer(this)](const QList<FoundApplication> &chosen) {
        if (self) {
            for (const ShelfItem &item : itemsFor(chosen)) {
                self->add(item);
            }
        }
    });
}

qsizetype ShelfLibrary::indexOf(const QString &id) const {
    const auto found = std::ranges::find(m_items, id, &ShelfItem::id);
    return found == m_items.cend() ? -1 : std::distance(m_items.cbegin(), found);
}

void ShelfLibrary::add(const ShelfItem &item) {
    QList<ShelfItem> items = m_items;
    if (const qsizetype index = indexOf(item.id); index >= 0) {
        items[index].visible = true;
    } else {
        items.append(item);
    }
    setItems(items);
}

void ShelfLibrary::toggle(const QString &id, Flag flag) {
    const qsizetype index = indexOf(id);
    if (index < 0) {
        return;
    }
    QList<ShelfItem> items = m_items;
    bool &value = flag == Flag::Favorite ? items[index].favorite : items[index].visible;
    value = !value;
    setItems(items);
}

void ShelfLibrary::move(const QString &id, qsizetype offset) {
    const qsizetype from = indexOf(id);
    const qsizetype to = from + offset;
    if (from < 0 || to < 0 || to >= m_items.size()) {
        return;
    }
    QList<ShelfItem> items = m_items;
    items.swapItemsAt(from, to);
    setItems(items);
}

void ShelfLibrary::remove(const QString &id) {
    QList<ShelfItem> items = m_items;
    if (items.removeIf([&id](const ShelfItem &item) { return item.id == id; }) > 0) {
        setItems(items);
    }
}

} // namespace perchly
