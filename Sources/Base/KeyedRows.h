#pragma once

#include <QAbstractListModel>
#include <QByteArrayList>
#include <QList>
#include <QString>
#include <QVariantList>

namespace perchly {

/// A list model for delegates that hold the keyboard or a drag: rows that stay in the list keep
/// their delegates. Each field is a role; the role "row" is a map of all of them. Main thread only.
class KeyedRows : public QAbstractListModel {
    Q_OBJECT
    Q_PROPERTY(int count READ count NOTIFY countChanged FINAL)
public:
    struct Row {
        QString key; ///< their order distinguishes rows with the same key
        QVariantList fields;
    };
    using Rows = QList<Row>;

    /// The role of the first field; the others follow.
    static constexpr int firstRole = Qt::UserRole + 1;

    /// The field names, in order.
    explicit KeyedRows(const QByteArrayList &names, QObject *parent = nullptr);

    [[nodiscard]] int count() const { return int(m_rows.size()); }
    /// Invalid for a row or field that does not exist.
    [[nodiscard]] QVariant field(int row, const QByteArray &name) const;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void countChanged();

protected:
    /// Replaces the rows, announcing only the differences.
    void setRows(Rows rows);
    /// Replaces the rows by overwriting the existing ones. Faster if most of them differ, as
    /// creating delegates takes longest.
    void overwriteRows(Rows rows);

private:
    void removeRange(qsizetype first, qsizetype end);
    void insertRange(qsizetype at, const Rows &rows);
    void updateRow(qsizetype at, const Row &row);

    const QByteArrayList m_names;
    Rows m_rows;
};

} // namespace perchly
