#pragma once

#include "ShelfLibrary.h"

#include <QAbstractListModel>
#include <QPointer>

namespace perchly {

/// The library's entries in their order, for a view. A row belongs to its entry: when entries come,
/// go, move or change, the others' rows stay as they are, so that a view keeps what a person is
/// doing with one. Main thread only.
class LibraryEntries : public QAbstractListModel {
    Q_OBJECT
    Q_PROPERTY(
        perchly::ShelfLibrary *library READ library WRITE setLibrary NOTIFY libraryChanged FINAL)
public:
    enum Role { EntryRole = Qt::UserRole }; ///< "entry": the ShelfItem

    explicit LibraryEntries(QObject *parent = nullptr);

    /// Without one there are no rows.
    [[nodiscard]] ShelfLibrary *library() const { return m_library; }
    void setLibrary(ShelfLibrary *library);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void libraryChanged();

private:
    void readLibrary();
    void removeAllBut(const QList<ShelfItem> &items);
    void placeRow(int row, const ShelfItem &item);

    QPointer<ShelfLibrary> m_library;
    QList<ShelfItem> m_rows;
};

} // namespace perchly
