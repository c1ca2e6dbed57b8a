#include "JsonPreferences.h"

#include "PreferenceJson.h"
#include "WholeFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QStandardPaths>

#include <cmath>
#include <cstdio>

namespace perchly {

namespace {

void tell(const QString &line) {
    std::fputs(qPrintable(QStringLiteral("perchly: %1\n").arg(line)), stderr);
}

std::optional<QJsonObject> parse(const QByteArray &bytes, QString &error) {
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &parseError);
    if (document.isObject()) {
        return document.object();
    }
    error = document.isNull() ? parseError.errorString() : QStringLiteral("it is not an object");
    return std::nullopt;
}

bool isNotFinite(const PreferenceValue &value) {
    const auto *number = std::get_if<double>(&value);
    return number != nullptr && !std::isfinite(*number);
}

} // namespace

JsonPreferences::JsonPreferences(const QString &path, QObject *parent)
    : Preferences(parent)
    , m_path(path)
    , m_backup(path) {
    wholefile::removeLeftovers(m_path);
    wholefile::removeLeftovers(PreferencesBackup::pathFor(m_path));
    const QString target = wholefile::resolveLinks(m_path);
    if (target != m_path) {
        wholefile::removeLeftovers(target);
    }
    load();
}

QString JsonPreferences::defaultPath() {
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation))
        .absoluteFilePath(QStringLiteral("perchly/preferences.json"));
}

void JsonPreferences::load() {
    const auto contents = wholefile::read(m_path);
    if (!contents.exists) {
        // Someone who deletes the file wants the defaults; whoever lost it wants the backup, which
        // the first set would replace.
        const QString backup = PreferencesBackup::pathFor(m_path);
        if (QFileInfo::exists(backup)) {
            if (const auto kept = wholefile::setAside(backup)) {
                QFile::remove(backup);
                tell(QStringLiteral("no preferences at %1: starting with the defaults, the last "
                                    "copy is kept as %2")
                         .arg(m_path, *kept));
            }
        }
        return;
    }
    QString error = contents.error;
    if (error.isEmpty()) {
        if (const auto document = parse(contents.bytes, error)) {
            m_document = *document;
            return;
        }
    }
    recover(error);
}

void JsonPreferences::recover(const QString &reason) {
    m_foreignFile = true;
    QString ignored;
    const auto backup = wholefile::read(PreferencesBackup::pathFor(m_path));
    const auto document = parse(backup.bytes, ignored);
    if (document) {
        m_document = *document;
    }
    tell(QStringLiteral("cannot read the preferences %1: %2; starting with %3")
             .arg(m_path, reason,
                  document ? QStringLiteral("the last copy") : QStringLiteral("the defaults")));
    save();
}

void JsonPreferences::save() {
    m_saved = false;
    const QString target = wholefile::resolveLinks(m_path);
    QString error;
    if (m_foreignFile) {
        if (const auto kept = wholefile::setAside(target)) {
            m_foreignFile = false;
            tell(QStringLiteral("kept what stood there as %1").arg(*kept));
        } else {
            error = QStringLiteral("what stands there cannot be moved aside");
        }
    }
    const QByteArray bytes = QJsonDocument(m_document).toJson();
    if (error.isEmpty()) {
        error = wholefile::replace(target, bytes, wholefile::Durability::System);
    }
    if (error.isEmpty()) {
        m_saved = true;
        m_failureTold = false;
        m_backup.keep(bytes);
    } else if (!std::exchange(m_failureTold, true)) {
        tell(QStringLiteral("cannot write the preferences %1: %2; the next change tries again")
                 .arg(target, error));
    }
}

std::optional<PreferenceValue> JsonPreferences::value(const QString &key) const {
    return preferenceFromJson(m_document.value(key));
}

void JsonPreferences::setValues(const PreferenceEntries &entries) {
    const QJsonObject before = m_document;
    for (const auto &[key, value] : entries) {
        if (!isNotFinite(value)) {
            m_document.insert(key, preferenceToJson(value));
        }
    }
    if (!m_saved || m_document != before) {
        save();
    }
    for (const auto &[key, value] : entries) {
        Q_EMIT changed(key);
    }
}

void JsonPreferences::removeValue(const QString &key) {
    if (!m_document.contains(key)) {
        return;
    }
    m_document.remove(key);
    save();
    Q_EMIT changed(key);
}

} // namespace perchly
