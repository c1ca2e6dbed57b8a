#include "JsonPreferences.h"

#include "PreferenceJson.h"
#include "PreferenceKeys.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <cmath>
#include <utility>

namespace perchly {

namespace {

bool isNotFinite(const PreferenceValue &value) {
    const auto *number = std::get_if<double>(&value);
    return number != nullptr && !std::isfinite(*number);
}

} // namespace

JsonPreferences::JsonPreferences(const QString &path, QObject *parent)
    : Preferences(parent)
    , m_settings(path) {
    const QDir folder = QFileInfo(path).absoluteDir();
    connect(&m_settings, &PreferenceFile::failed, this, &Preferences::failed);
    for (const QLatin1StringView key : keys::longValues) {
        const QString file = folder.filePath(key + QStringLiteral(".json"));
        const auto added = m_longValues.try_emplace(key, file).first;
        connect(&added->second, &PreferenceFile::failed, this, &Preferences::failed);
    }
    moveLongValues();
}

QString JsonPreferences::defaultPath() {
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation))
        .absoluteFilePath(QStringLiteral("perchly/preferences.json"));
}

void JsonPreferences::moveLongValues() {
    QJsonObject settings = m_settings.document();
    for (auto &[key, file] : m_longValues) {
        if (settings.contains(key) && !file.document().contains(key)) {
            file.set(QJsonObject{{key, settings.value(key)}});
        }
        if (file.isSaved()) {
            settings.remove(key);
        }
    }
    if (settings != m_settings.document()) {
        m_settings.set(settings);
    }
}

const PreferenceFile &JsonPreferences::fileOf(const QString &key) const {
    const auto found = m_longValues.find(key);
    return found == m_longValues.end() ? m_settings : found->second;
}

PreferenceFile &JsonPreferences::fileOf(const QString &key) {
    return const_cast<PreferenceFile &>(std::as_const(*this).fileOf(key));
}

std::optional<PreferenceValue> JsonPreferences::value(const QString &key) const {
    return preferenceFromJson(fileOf(key).document().value(key));
}

void JsonPreferences::store(const PreferenceEntries &entries) {
    std::map<PreferenceFile *, QJsonObject> documents;
    for (const auto &[key, value] : entries) {
        PreferenceFile &file = fileOf(key);
        QJsonObject &document = documents.try_emplace(&file, file.document()).first->second;
        if (!isNotFinite(value)) {
            document.insert(key, preferenceToJson(value));
        }
    }
    for (const auto &[file, document] : documents) {
        file->set(document);
    }
    for (const auto &[key, value] : entries) {
        Q_EMIT changed(key);
    }
}

void JsonPreferences::removeValue(const QString &key) {
    bool isRemoved = false;
    // A long value may still be among the settings, if it could not be moved.
    for (PreferenceFile *file : {&fileOf(key), &m_settings}) {
        QJsonObject document = file->document();
        if (document.contains(key)) {
            document.remove(key);
            file->set(document);
            isRemoved = true;
        }
    }
    if (isRemoved) {
        Q_EMIT changed(key);
    }
}

} // namespace perchly
