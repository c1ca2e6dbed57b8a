#pragma once

#include <QAbstractListModel>
#include <QList>
#include <QString>
#include <QtQml/qqmlregistration.h>
#include <QVariantMap>

namespace perchly {

/// Rows for a list whose delegates hold the keyboard or a drag: when the rows change, those that
/// stay keep their delegates. The roles are "key" and "row", which holds all of a row's fields.
/// Main thread only.
class KeyedRows : public QAbstractListModel {
    Q_OBJECT
    QML_ANONYMOUS
    Q_PROPERTY(int count READ count NOTIFY countChanged FINAL)
public:
    struct Row {
        QString key; ///< rows with the same key are told apart by their order
        QVariantMap fields;
    };

    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] int count() const { return int(m_rows.size()); }

    [[nodiscard]] int rowCount(const QModelIndex &parent) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void countChanged();

protected:
    /// Makes these the rows, announcing no more than what differs.
    void setRows(QList<Row> rows);

private:
    void removeAbsent(const QList<Row> &rows);
    void place(qsizetype position, const Row &row);

    QList<Row> m_rows;
};

} // namespace perchly
