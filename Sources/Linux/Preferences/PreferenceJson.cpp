#include "PreferenceJson.h"

#include <QJsonObject>

namespace perchly {

namespace {

constexpr QLatin1StringView dataKey("data");
constexpr QLatin1StringView encodingKey("encoding");
constexpr QLatin1StringView utf8("utf-8");
constexpr QLatin1StringView base64("base64");

template <class Plain>
QJsonValue toJson(const Plain &value) {
    return value;
}

QJsonValue toJson(const QByteArray &value) {
    const QString text = QString::fromUtf8(value);
    const bool legible = text.toUtf8() == value;
    return QJsonObject{{dataKey, legible ? text : QString::fromLatin1(value.toBase64())},
                       {encodingKey, legible ? utf8 : base64}};
}

std::optional<PreferenceValue> dataFromJson(const QJsonObject &object) {
    const QJsonValue data = object.value(dataKey);
    const QJsonValue encoding = object.value(encodingKey);
    if (object.size() != 2 || !data.isString() || !encoding.isString()) {
        return std::nullopt;
    }
    if (encoding.toString() == utf8) {
        return data.toString().toUtf8();
    }
    if (encoding.toString() == base64) {
        auto decoded = QByteArray::fromBase64Encoding(data.toString().toLatin1(),
                                                      QByteArray::AbortOnBase64DecodingErrors);
        return decoded ? std::optional<PreferenceValue>(std::move(decoded.decoded)) : std::nullopt;
    }
    return std::nullopt;
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
