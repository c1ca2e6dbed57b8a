#include "LibraryRows.h"

#include <algorithm>
#include <utility>

namespace perchly {

void LibraryRows::setLibrary(ShelfLibrary *library) {
    if (m_library == library) {
        return;
    }
    if (m_library) {
        m_library->disconnect(this);
    }
    m_library = library;
    if (m_library) {
        connect(m_library, &ShelfLibrary::itemsChanged, this, &LibraryRows::refresh);
        refresh();
    }
    Q_EMIT libraryChanged();
}

void LibraryRows::refresh() {
    QList<Row> rows;
    for (const ShelfItem &item : m_library->items()) {
        rows.append({item.id, {{QStringLiteral("entry"), QVariant::fromValue(item)}}});
    }
    setRows(rows);
    const bool some = std::ranges::any_of(m_library->items(), &ShelfItem::removable);
    if (std::exchange(m_someRemovable, some) != some) {
        Q_EMIT someRemovableChanged();
    }
}

} // namespace perchly
