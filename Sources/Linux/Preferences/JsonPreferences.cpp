#include "JsonPreferences.h"

#include "PreferenceKeys.h"

#include <QFileInfo>
#include <QJsonObject>
#include <QJsonValue>
#include <QStandardPaths>

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

} // namespace

JsonPreferences::JsonPreferences(const QString &path, QObject *parent)
    : Preferences(parent)
    , m_folder(QFileInfo(path).absoluteDir())
    , m_settings(path) {
    connect(&m_settings, &PreferenceFile::failed, this, &Preferences::failed);
    for (const QLatin1StringView key : keys::longValues) {
        const QString file = m_folder.filePath(key + QStringLiteral(".json"));
        const auto added = m_longValues.try_emplace(key, file).first;
        connect(&added->second, &PreferenceFile::failed, this, &Preferences::failed);
    }
}

QString JsonPreferences::defaultPath() {
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation))
        .absoluteFilePath(QStringLiteral("perchly/preferences.json"));
}

std::optional<PreferenceValue> JsonPreferences::value(const QString &key) const {
    const auto own = m_longValues.find(key);
    const bool isOwn = own != m_longValues.end() && own->second.document().contains(key);
    const PreferenceFile &file = isOwn ? own->second : m_settings;
    return preferenceFromJson(file.document().value(key));
}

bool JsonPreferences::isComplete() const {
    return m_folder.entryList({QStringLiteral("*.kept-*")}).isEmpty();
}

void JsonPreferences::store(const PreferenceEntries &entries) {
    std::map<PreferenceFile *, QJsonObject> documents;
    for (const auto &[key, value] : entries) {
        const auto own = m_longValues.find(key);
        PreferenceFile &file = own == m_longValues.end() ? m_settings : own->second;
        QJsonObject &document = documents.try_emplace(&file, file.document()).first->second;
        document.insert(key, preferenceToJson(value));
    }
    for (const auto &[file, document] : documents) {
        file->set(document);
    }
    for (const auto &[key, value] : entries) {
        Q_EMIT changed(key);
    }
}

void JsonPreferences::removeValue(const QString &key) {
    if (!value(key)) {
        return;
    }
    const auto removeFrom = [&key](PreferenceFile &file) {
        QJsonObject document = file.document();
        document.remove(key);
        file.set(document);
    };
    removeFrom(m_settings);
    if (const auto own = m_longValues.find(key); own != m_longValues.end()) {
        removeFrom(own->second);
    }
    Q_EMIT changed(key);
}

} // namespace perchly
