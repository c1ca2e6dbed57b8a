#include "KeyedRows.h"

#include <QHash>
#include <QSet>

#include <algorithm>

namespace perchly {

namespace {

constexpr int rowRole = Qt::UserRole;

/// Appends a number to repeated keys.
void makeUnique(KeyedRows::Rows &rows) {
    QHash<QString, int> seen;
    for (KeyedRows::Row &row : rows) {
        if (const int number = seen[row.key]++; number > 0) {
            row.key += u'\n' + QString::number(number);
        }
    }
}

QSet<QString> keysOf(const KeyedRows::Rows &rows) {
    QSet<QString> keys;
    for (const KeyedRows::Row &row : rows) {
        keys.insert(row.key);
    }
    return keys;
}

} // namespace

KeyedRows::KeyedRows(const QByteArrayList &names, QObject *parent)
    : QAbstractListModel(parent)
    , m_names(names) {}

QVariant KeyedRows::field(int row, const QByteArray &name) const {
    return data(index(row), firstRole + int(m_names.indexOf(name)));
}

int KeyedRows::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : count();
}

QVariant KeyedRows::data(const QModelIndex &index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const QVariantList &fields = m_rows.at(index.row()).fields;
    if (role != rowRole) {
        return fields.value(role - firstRole);
    }
    QVariantMap row;
    for (qsizetype number = 0; number < m_names.size(); ++number) {
        row.insert(QString::fromLatin1(m_names.at(number)), fields.at(number));
    }
    return row;
}

QHash<int, QByteArray> KeyedRows::roleNames() const {
    QHash<int, QByteArray> names{{rowRole, "row"}};
    for (qsizetype number = 0; number < m_names.size(); ++number) {
        names.insert(firstRole + int(number), m_names.at(number));
    }
    return names;
}

void KeyedRows::removeRange(qsizetype first, qsizetype end) {
    if (first < end) {
        beginRemoveRows({}, int(first), int(end) - 1);
        m_rows.remove(first, end - first);
        endRemoveRows();
    }
}

void KeyedRows::insertRange(qsizetype at, const Rows &rows) {
    if (!rows.isEmpty()) {
        beginInsertRows({}, int(at), int(at + rows.size()) - 1);
        m_rows.insert(at, rows.size(), Row());
        std::ranges::copy(rows, m_rows.begin() + at);
        endInsertRows();
    }
}

void KeyedRows::updateRow(qsizetype at, const Row &row) {
    Row &present = m_rows[at];
    present.key = row.key;
    QList<int> roles;
    for (qsizetype number = 0; number < m_names.size(); ++number) {
        if (present.fields.at(number) != row.fields.at(number)) {
            roles.append(firstRole + int(number));
        }
    }
    if (!roles.isEmpty()) {
        present.fields = row.fields;
        Q_EMIT dataChanged(index(int(at)), index(int(at)), roles + QList{rowRole});
    }
}

void KeyedRows::setRows(Rows rows) {
    const int before = count();
    makeUnique(rows);
    const QSet<QString> wanted = keysOf(rows);
    for (qsizetype end = m_rows.size(); end > 0;) {
        qsizetype first = end;
        while (first > 0 && !wanted.contains(m_rows.at(first - 1).key)) {
            --first;
        }
        removeRange(first, end);
        end = first - 1;
    }
    const QSet<QString> kept = keysOf(m_rows);
    for (qsizetype at = 0; at < rows.size(); ++at) {
        const QString &key = rows.at(at).key;
        if (!kept.contains(key)) {
            const auto next =
                std::find_if(rows.cbegin() + at, rows.cend(),
                             [&kept](const Row &row) { return kept.contains(row.key); });
            const qsizetype added = std::distance(rows.cbegin() + at, next);
            insertRange(at, rows.mid(at, added));
            at += added - 1;
            continue;
        }
        const auto found = std::ranges::find(m_rows.cbegin() + at, m_rows.cend(), key, &Row::key);
        if (const qsizetype from = std::distance(m_rows.cbegin(), found); from != at) {
            beginMoveRows({}, int(from), int(from), {}, int(at));
            m_rows.move(from, at);
            endMoveRows();
        }
        updateRow(at, rows.at(at));
    }
    if (count() != before) {
        Q_EMIT countChanged();
    }
}

void KeyedRows::overwriteRows(Rows rows) {
    const int before = count();
    makeUnique(rows);
    removeRange(rows.size(), m_rows.size());
    for (qsizetype at = 0; at < m_rows.size(); ++at) {
        updateRow(at, rows.at(at));
    }
    insertRange(m_rows.size(), rows.mid(m_rows.size()));
    if (count() != before) {
        Q_EMIT countChanged();
    }
}

} // namespace perchly
