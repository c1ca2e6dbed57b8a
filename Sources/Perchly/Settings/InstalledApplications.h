#pragma once

#include "ShelfLibrary.h"

#include <QAbstractListModel>
#include <QPointer>
#include <QSet>

namespace perchly {

/// The library's installed applications that match a search, in their order, for a view. Rows keep
/// their place when the library changes; a search starts a list anew. Main thread only.
class InstalledApplications : public QAbstractListModel {
    Q_OBJECT
    Q_PROPERTY(
        perchly::ShelfLibrary *library READ library WRITE setLibrary NOTIFY libraryChanged FINAL)
    Q_PROPERTY(QString search READ search WRITE setSearch NOTIFY searchChanged FINAL)
    Q_PROPERTY(int count READ count NOTIFY countChanged FINAL)
public:
    enum Role {
        ItemRole = Qt::UserRole, ///< "item": the ShelfItem, as `ShelfLibrary::add` takes it
        NameRole,                ///< "name"
        PathRole,                ///< "path"; empty when absent
        AddedRole                ///< "added": the shelf has it, and does not hide it
    };

    explicit InstalledApplications(QObject *parent = nullptr);

    /// Without one there are no rows.
    [[nodiscard]] ShelfLibrary *library() const { return m_library; }
    void setLibrary(ShelfLibrary *library);

    /// Rows whose name contains this text, whatever the case under the person's locale; all of them
    /// when it is empty.
    [[nodiscard]] QString search() const { return m_search; }
    void setSearch(const QString &search);

    [[nodiscard]] int count() const { return int(m_rows.size()); }

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void libraryChanged();
    void searchChanged();
    void countChanged();

private:
    using Rows = QList<const ShelfItem *>;

    [[nodiscard]] Rows matches() const;
    void readLibrary();
    void readAdded();
    void replaceRows(const Rows &rows);

    QPointer<ShelfLibrary> m_library;
    QString m_search;
    QList<ShelfItem> m_applications;
    QStringList m_folded;  ///< the applications' names, as they are compared
    Rows m_rows;           ///< among the applications
    QSet<QString> m_added; ///< identifiers
};

} // namespace perchly
