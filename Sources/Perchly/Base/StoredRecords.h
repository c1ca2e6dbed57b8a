#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonValue>
#include <QList>
#include <QString>
#include <QUuid>

#include <optional>

namespace perchly {

/// How lists of records are stored: a JSON array in UTF-8, one element for each record in order.

/// An identifier as it is stored: in capitals, with hyphens and without braces.
[[nodiscard]] QString identifierText(const QUuid &id);
/// Only that form, in either case.
[[nodiscard]] std::optional<QUuid> identifierFrom(const QJsonValue &value);

template <class Record, class Encode>
[[nodiscard]] QByteArray encodeRecords(const QList<Record> &records, Encode encode) {
    QJsonArray array;
    for (const Record &record : records) {
        array.append(encode(record));
    }
    return QJsonDocument(array).toJson(QJsonDocument::Compact);
}

/// Nothing when the document is no such array, or `decode` gives nothing for one of its elements.
template <class Record>
[[nodiscard]] std::optional<QList<Record>>
decodeRecords(const QByteArray &document, std::optional<Record> (*decode)(const QJsonValue &)) {
    const QJsonDocument parsed = QJsonDocument::fromJson(document);
    if (!parsed.isArray()) {
        return std::nullopt;
    }
    QList<Record> records;
    const QJsonArray array = parsed.array();
    records.reserve(array.size());
    for (const QJsonValue &value : array) {
        const std::optional<Record> record = decode(value);
        if (!record) {
            return std::nullopt;
        }
        records.append(*record);
    }
    return records;
}

} // namespace perchly
