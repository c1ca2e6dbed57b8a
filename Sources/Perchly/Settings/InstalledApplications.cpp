#include "InstalledApplications.h"

#include <QSet>

namespace perchly {

InstalledApplications::InstalledApplications(QObject *parent)
    : KeyedRows({"item", "name", "path", "added"}, parent) {
    connect(this, &InstalledApplications::libraryChanged, this, &InstalledApplications::follow);
    connect(this, &InstalledApplications::searchChanged, this,
            [this] { overwriteRows(matches()); });
}

void InstalledApplications::follow() {
    for (const auto signal : {&ShelfLibrary::installedChanged, &ShelfLibrary::itemsChanged}) {
        connect(m_library, signal, this, [this] { setRows(matches()); });
    }
    setRows(matches());
}

KeyedRows::Rows InstalledApplications::matches() const {
    Rows rows;
    if (!m_library) {
        return rows;
    }
    QSet<QString> added;
    for (const ShelfItem &item : m_library->items()) {
        if (item.visible) {
            added.insert(item.id);
        }
    }
    for (const ShelfItem &item : m_library->installedMatching(m_search)) {
        rows.append({item.id,
                     {QVariant::fromValue(item), item.shownName(), item.applicationPath(),
                      added.contains(item.id)}});
    }
    return rows;
}

} // namespace perchly
