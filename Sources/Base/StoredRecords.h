#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>
#include <QList>
#include <QString>
#include <QUrl>
#include <QUuid>

#include <optional>
#include <tuple>
#include <type_traits>

namespace perchly {

/// How lists of records are stored: a JSON array in UTF-8, one object for each record in order.
///
/// A record lists its stored fields in a static function fields(): a tuple of pairs of a name
/// and a pointer to a member. A member is a bool, a string, a UUID, an absolute URL, another
/// record, or an optional or a list of these. Optional members are left out while they are empty.

/// The stored form: capitals, with hyphens, without braces.
[[nodiscard]] QString identifierText(const QUuid &id);
/// Accepts only that form, in upper or lower case.
[[nodiscard]] std::optional<QUuid> identifierFrom(const QJsonValue &value);

template <class Value>
[[nodiscard]] QJsonValue toJson(const Value &value) {
    if constexpr (std::is_same_v<Value, bool> || std::is_same_v<Value, QString>) {
        return value;
    } else if constexpr (std::is_same_v<Value, QUuid>) {
        return identifierText(value);
    } else if constexpr (std::is_same_v<Value, QUrl>) {
        return value.toString(QUrl::FullyEncoded);
    } else if constexpr (requires { value.has_value(); }) {
        return value ? toJson(*value) : QJsonValue(QJsonValue::Undefined);
    } else if constexpr (requires { Value::fields(); }) {
        QJsonObject object;
        const auto insert = [&](const auto &...field) {
            (object.insert(field.first, toJson(value.*field.second)), ...);
        };
        std::apply(insert, Value::fields());
        return object;
    } else {
        QJsonArray array;
        for (const auto &element : value) {
            array.append(toJson(element));
        }
        return array;
    }
}

/// False if the JSON holds something else. Unknown fields are ignored; optional ones may be null.
template <class Value>
[[nodiscard]] bool fromJson(const QJsonValue &json, Value &value) {
    if constexpr (std::is_same_v<Value, bool>) {
        value = json.toBool();
        return json.isBool();
    } else if constexpr (std::is_same_v<Value, QString>) {
        value = json.toString();
        return json.isString();
    } else if constexpr (std::is_same_v<Value, QUuid>) {
        const auto id = identifierFrom(json);
        value = id.value_or(QUuid());
        return id.has_value();
    } else if constexpr (std::is_same_v<Value, QUrl>) {
        // In its stored form: some URLs can be written in two ways.
        value = QUrl(QUrl(json.toString()).toString(QUrl::FullyEncoded));
        return value.isValid() && !value.isRelative();
    } else if constexpr (requires { value.has_value(); }) {
        return json.isUndefined() || json.isNull() || fromJson(json, value.emplace());
    } else if constexpr (requires { Value::fields(); }) {
        const QJsonObject object = json.toObject();
        const auto read = [&](const auto &...field) {
            return (fromJson(object.value(field.first), value.*field.second) && ...);
        };
        return std::apply(read, Value::fields());
    } else {
        const QJsonArray array = json.toArray();
        for (const QJsonValue &element : array) {
            if (!fromJson(element, value.emplaceBack())) {
                return false;
            }
        }
        return json.isArray();
    }
}

template <class Record>
[[nodiscard]] QByteArray encodeRecords(const QList<Record> &records) {
    return QJsonDocument(toJson(records).toArray()).toJson(QJsonDocument::Compact);
}

/// nullopt if the document is not an array of such records.
template <class Record>
[[nodiscard]] std::optional<QList<Record>> decodeRecords(const QByteArray &document) {
    QList<Record> records;
    const QJsonDocument parsed = QJsonDocument::fromJson(document);
    const bool valid = parsed.isArray() && fromJson(QJsonValue(parsed.array()), records);
    return valid ? std::optional(records) : std::nullopt;
}

} // namespace perchly
