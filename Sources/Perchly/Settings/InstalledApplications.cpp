#include "InstalledApplications.h"

#include "TextSearch.h"

#include <QStringMatcher>

#include <algorithm>
#include <utility>

namespace perchly {

InstalledApplications::InstalledApplications(QObject *parent)
    : QAbstractListModel(parent) {}

void InstalledApplications::setLibrary(ShelfLibrary *library) {
    if (m_library == library) {
        return;
    }
    if (m_library) {
        m_library->disconnect(this);
    }
    m_library = library;
    if (library != nullptr) {
        connect(library, &ShelfLibrary::installedChanged, this,
                &InstalledApplications::readLibrary);
        connect(library, &ShelfLibrary::itemsChanged, this, &InstalledApplications::readAdded);
        connect(library, &QObject::destroyed, this, &InstalledApplications::readLibrary);
    }
    readAdded();
    readLibrary();
    Q_EMIT libraryChanged();
}

void InstalledApplications::setSearch(const QString &search) {
    if (m_search == search) {
        return;
    }
    m_search = search;
    Q_EMIT searchChanged();
    beginResetModel();
    m_rows = matches();
    endResetModel();
    Q_EMIT countChanged();
}

InstalledApplications::Rows InstalledApplications::matches() const {
    Rows rows;
    const QStringMatcher matcher(foldedForSearch(m_search));
    for (qsizetype place = 0; place < m_folded.size(); ++place) {
        if (m_search.isEmpty() || matcher.indexIn(m_folded.at(place)) >= 0) {
            rows.append(&m_applications.at(place));
        }
    }
    return rows;
}

void InstalledApplications::readLibrary() {
    const ShelfLibrary *library = m_library.data();
    // Keeps what the rows point at until they are replaced.
    const QList<ShelfItem> previous = std::exchange(
        m_applications, library != nullptr ? library->installed() : QList<ShelfItem>());
    m_folded.clear();
    m_folded.reserve(m_applications.size());
    for (const ShelfItem &application : std::as_const(m_applications)) {
        m_folded.append(foldedForSearch(application.name));
    }
    replaceRows(matches());
}

void InstalledApplications::replaceRows(const Rows &rows) {
    const auto equal = [](const ShelfItem *one, const ShelfItem *other) { return *one == *other; };
    const auto [oldEnd, newEnd] = std::ranges::mismatch(std::as_const(m_rows), rows, equal);
    const auto first = int(std::distance(m_rows.cbegin(), oldEnd));
    const auto same = std::mismatch(m_rows.crbegin(), std::make_reverse_iterator(oldEnd),
                                    rows.crbegin(), std::make_reverse_iterator(newEnd), equal);
    const auto kept = std::distance(m_rows.crbegin(), same.first);
    const int oldCount = int(m_rows.size() - kept) - first;
    const int newCount = int(rows.size() - kept) - first;
    if (oldCount > 0) {
        beginRemoveRows({}, first, first + oldCount - 1);
        m_rows.remove(first, oldCount);
        endRemoveRows();
    }
    if (newCount > 0) {
        beginInsertRows({}, first, first + newCount - 1);
        m_rows = rows;
        endInsertRows();
    }
    m_rows = rows; // of those that stay, too
    if (oldCount != newCount) {
        Q_EMIT countChanged();
    }
}

void InstalledApplications::readAdded() {
    QSet<QString> added;
    if (const ShelfLibrary *library = m_library.data()) {
        for (const ShelfItem &item : library->items()) {
            if (item.visible) {
                added.insert(item.id);
            }
        }
    }
    if (std::exchange(m_added, added) != added && !m_rows.isEmpty()) {
        Q_EMIT dataChanged(index(0), index(count() - 1), {AddedRole});
    }
}

int InstalledApplications::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : count();
}

QVariant InstalledApplications::data(const QModelIndex &index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid)) {
        return {};
    }
    const ShelfItem &item = *m_rows.at(index.row());
    switch (role) {
    case ItemRole:
        return QVariant::fromValue(item);
    case NameRole:
        return item.shownName();
    case PathRole:
        return item.applicationPath();
    case AddedRole:
        return m_added.contains(item.id);
    default:
        return {};
    }
}

QHash<int, QByteArray> InstalledApplications::roleNames() const {
    return {{ItemRole, "item"}, {NameRole, "name"}, {PathRole, "path"}, {AddedRole, "added"}};
}

} // namespace perchly
