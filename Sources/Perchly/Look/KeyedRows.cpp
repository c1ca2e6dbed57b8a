#include "KeyedRows.h"

#include <QHash>
#include <QSet>

#include <algorithm>

namespace perchly {

namespace {

constexpr int keyRole = Qt::UserRole;
constexpr int rowRole = Qt::UserRole + 1;

/// Gives the second and later rows of a key keys of their own.
void makeUnique(QList<KeyedRows::Row> &rows) {
    QHash<QString, int> seen;
    for (KeyedRows::Row &row : rows) {
        if (const int number = seen[row.key]++; number > 0) {
            row.key += u'\n' + QString::number(number);
        }
    }
}

} // namespace

int KeyedRows::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : count();
}

QVariant KeyedRows::data(const QModelIndex &index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const Row &row = m_rows.at(index.row());
    return role == keyRole   ? QVariant(row.key)
           : role == rowRole ? QVariant(row.fields)
                             : QVariant();
}

QHash<int, QByteArray> KeyedRows::roleNames() const {
    return {{keyRole, "key"}, {rowRole, "row"}};
}

void KeyedRows::removeAbsent(const QList<Row> &rows) {
    QSet<QString> wanted;
    for (const Row &row : rows) {
        wanted.insert(row.key);
    }
    for (qsizetype last = m_rows.size() - 1; last >= 0; --last) {
        if (!wanted.contains(m_rows.at(last).key)) {
            beginRemoveRows({}, int(last), int(last));
            m_rows.removeAt(last);
            endRemoveRows();
        }
    }
}

void KeyedRows::place(qsizetype position, const Row &row) {
    const auto found = std::find_if(m_rows.cbegin() + position, m_rows.cend(),
                                    [&row](const Row &present) { return present.key == row.key; });
    if (found == m_rows.cend()) {
        beginInsertRows({}, int(position), int(position));
        m_rows.insert(position, row);
        endInsertRows();
        return;
    }
    const qsizetype from = std::distance(m_rows.cbegin(), found);
    if (from != position) {
        beginMoveRows({}, int(from), int(from), {}, int(position));
        m_rows.move(from, position);
        endMoveRows();
    }
    if (m_rows.at(position).fields != row.fields) {
        m_rows[position].fields = row.fields;
        Q_EMIT dataChanged(index(int(position)), index(int(position)), {rowRole});
    }
}

void KeyedRows::setRows(QList<Row> rows) {
    const int before = count();
    makeUnique(rows);
    removeAbsent(rows);
    for (qsizetype position = 0; position < rows.size(); ++position) {
        place(position, rows.at(position));
    }
    if (count() != before) {
        Q_EMIT countChanged();
    }
}

} // namespace perchly
