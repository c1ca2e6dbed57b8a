#include "PreferenceJson.h"

#include <QJsonObject>

namespace perchly {

namespace {

constexpr QLatin1StringView dataKey("data");
constexpr QLatin1StringView encodingKey("encoding");
constexpr QLatin1StringView utf8("utf-8");

template <class Plain>
QJsonValue toJson(const Plain &value) {
    return value;
}

QJsonValue toJson(const QByteArray &value) {
    return QJsonObject{{dataKey, QString::fromUtf8(value)}, {encodingKey, utf8}};
}

std::optional<PreferenceValue> dataFromJson(const QJsonObject &object) {
    const QJsonValue data = object.value(dataKey);
    return data.isString() && object.value(encodingKey) == utf8
               ? std::optional<PreferenceValue>(data.toString().toUtf8())
               : std::nullopt;
}

} // namespace

QJsonValue preferenceToJson(const PreferenceValue &value) {
    return std::visit([](const auto &held) { return toJson(held); }, value);
}

std::optional<PreferenceValue> preferenceFromJson(const QJsonValue &json) {
    switch (json.type()) {
    case QJsonValue::Bool:
        return json.toBool();
    case QJsonValue::Double:
        return json.toDouble();
    case QJsonValue::String:
        return json.toString();
    case QJsonValue::Object:
        return dataFromJson(json.toObject());
    default:
        return std::nullopt;
    }
}

} // namespace perchly
