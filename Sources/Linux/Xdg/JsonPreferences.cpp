#include "JsonPreferences.h"

#include "PreferenceJson.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QStandardPaths>

#include <cmath>
#include <cstdio>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr auto firstRetry = 5s;
constexpr auto nextRetries = 1min;

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
    m_retry.setSingleShot(true);
    connect(&m_retry, &QTimer::timeout, this, &JsonPreferences::save);
    if (const auto *application = QCoreApplication::instance()) {
        connect(application, &QCoreApplication::aboutToQuit, this, [this] {
            if (!m_saved) {
                save();
            }
        });
    }
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
            noteWritten(wholefile::resolveLinks(m_path), contents.bytes);
            return;
        }
    }
    recover(error);
}

void JsonPreferences::recover(const QString &reason) {
    m_foreignFile = true;
    QString ignored;
    const QString backupPath = PreferencesBackup::pathFor(m_path);
    const auto backup = wholefile::read(backupPath);
    const auto document = parse(backup.bytes, ignored);
    if (document) {
        m_document = *document;
    } else if (backup.exists) {
        (void)wholefile::setAside(backupPath); // it is about to be replaced
    }
    tell(QStringLiteral("cannot read the preferences %1: %2; starting with %3")
             .arg(m_path, reason,
                  document ? QStringLiteral("the last copy") : QStringLiteral("the defaults")));
    save();
}

void JsonPreferences::save() {
    m_saved = false;
    const QString target = wholefile::resolveLinks(m_path);
    const QByteArray bytes = QJsonDocument(m_document).toJson();
    const QString error = write(target, bytes);
    if (error.isEmpty()) {
        m_saved = true;
        m_failureTold = false;
        m_retry.stop();
        noteWritten(target, bytes);
        m_backup.keep(bytes);
        return;
    }
    m_retry.start(m_failureTold ? nextRetries : firstRetry);
    if (!std::exchange(m_failureTold, true)) {
        tell(QStringLiteral("cannot write the preferences %1: %2; trying again later")
                 .arg(target, error));
        QMetaObject::invokeMethod(
            this, [this, error] { Q_EMIT failed(error); }, Qt::QueuedConnection);
    }
}

QString JsonPreferences::write(const QString &target, const QByteArray &bytes) {
    std::optional<QString> kept;
    if (isForeign(target)) {
        kept = wholefile::setAside(target);
        if (!kept) {
            return QStringLiteral("what stands there cannot be moved aside");
        }
    }
    QString error = wholefile::replace(target, bytes, wholefile::Durability::System);
    if (error.isEmpty()) {
        m_foreignFile = false;
    }
    if (kept && error.isEmpty()) {
        tell(QStringLiteral("kept what stood there as %1").arg(*kept));
    } else if (kept) {
        wholefile::takeBack(*kept, target);
    }
    return error;
}

bool JsonPreferences::isForeign(const QString &target) const {
    const wholefile::Version version = wholefile::version(target);
    if (!version.exists || m_foreignFile) {
        return version.exists;
    }
    return version != m_version && wholefile::read(target).bytes != m_bytes;
}

void JsonPreferences::noteWritten(const QString &target, const QByteArray &bytes) {
    m_version = wholefile::version(target);
    m_bytes = bytes;
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
