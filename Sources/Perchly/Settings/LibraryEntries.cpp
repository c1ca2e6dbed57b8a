#include "LibraryEntries.h"

#include <QSet>

#include <algorithm>
#include <utility>

namespace perchly {

LibraryEntries::LibraryEntries(QObject *parent)
    : QAbstractListModel(parent) {}

void LibraryEntries::setLibrary(ShelfLibrary *library) {
    if (m_library == library) {
        return;
    }
    if (m_library) {
        m_library->disconnect(this);
    }
    m_library = library;
    if (library != nullptr) {
        connect(library, &ShelfLibrary::itemsChanged, this, &LibraryEntries::readLibrary);
        connect(library, &QObject::destroyed, this, &LibraryEntries::readLibrary);
    }
    readLibrary();
    Q_EMIT libraryChanged();
}

void LibraryEntries::readLibrary() {
    const ShelfLibrary *library = m_library.data();
    const QList<ShelfItem> items = library != nullptr ? library->items() : QList<ShelfItem>();
    removeAllBut(items);
    for (int row = 0; row < int(items.size()); ++row) {
        placeRow(row, items.at(row));
    }
    if (m_rows.size() > items.size()) { // a second row with an identifier that is there once now
        beginRemoveRows({}, int(items.size()), int(m_rows.size()) - 1);
        m_rows.resize(items.size());
        endRemoveRows();
    }
}

void LibraryEntries::removeAllBut(const QList<ShelfItem> &items) {
    QSet<QString> kept;
    for (const ShelfItem &item : items) {
        kept.insert(item.id);
    }
    for (int row = int(m_rows.size()) - 1; row >= 0; --row) {
        if (!kept.contains(m_rows.at(row).id)) {
            beginRemoveRows({}, row, row);
            m_rows.removeAt(row);
            endRemoveRows();
        }
    }
}

/// Makes that row the item's; those before it are in place already.
void LibraryEntries::placeRow(int row, const ShelfItem &item) {
    const auto found =
        std::find_if(m_rows.cbegin() + row, m_rows.cend(),
                     [&item](const ShelfItem &other) { return other.id == item.id; });
    const int from = int(std::distance(m_rows.cbegin(), found));
    if (from == int(m_rows.size())) {
        beginInsertRows({}, row, row);
        m_rows.insert(row, item);
        endInsertRows();
        return;
    }
    if (from != row) {
        beginMoveRows({}, from, from, {}, row);
        m_rows.move(from, row);
        endMoveRows();
    }
    if (m_rows.at(row) != item) {
        m_rows[row] = item;
        Q_EMIT dataChanged(index(row), index(row), {EntryRole});
    }
}

int LibraryEntries::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : int(m_rows.size());
}

QVariant LibraryEntries::data(const QModelIndex &index, int role) const {
    if (role != EntryRole ||
        !checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid)) {
        return {};
    }
    return QVariant::fromValue(m_rows.at(index.row()));
}

QHash<int, QByteArray> LibraryEntries::roleNames() const {
    return {{EntryRole, "entry"}};
}

} // namespace perchly
