#include "PreferenceFile.h"

#include "WholeFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>

#include <chrono>
#include <cstdio>
#include <optional>
#include <utility>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr auto backupPause = 400ms;
constexpr auto retryPause = 30s;

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

} // namespace

PreferenceFile::PreferenceFile(const QString &path)
    : m_path(path)
    , m_backup(path + QStringLiteral(".bak")) {
    m_pause.setSingleShot(true);
    m_pause.setInterval(backupPause);
    connect(&m_pause, &QTimer::timeout, this, &PreferenceFile::backUp);
    m_retry.setInterval(retryPause);
    connect(&m_retry, &QTimer::timeout, this, &PreferenceFile::save);
    m_pool.setMaxThreadCount(1);
    m_pool.setExpiryTimeout(5000);
    load();
}

PreferenceFile::~PreferenceFile() {
    if (!m_saved) {
        save();
    }
    if (m_pause.isActive()) {
        backUp();
    }
}

void PreferenceFile::load() {
    const auto contents = wholefile::read(m_path);
    if (!contents.exists) {
        // A user who deleted the file wants the defaults, but one who lost it wants the backup,
        // which the first set() would replace.
        if (const auto kept = wholefile::setAside(m_backup)) {
            QFile::remove(m_backup);
            tell(QStringLiteral("no preferences at %1: starting with the defaults, the last copy "
                                "is kept as %2")
                     .arg(m_path, *kept));
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

void PreferenceFile::recover(const QString &reason) {
    m_damaged = true;
    QString ignored;
    const auto copy = parse(wholefile::read(m_backup).bytes, ignored);
    m_document = copy.value_or(QJsonObject());
    tell(QStringLiteral("cannot read the preferences %1: %2; starting with %3")
             .arg(m_path, reason,
                  copy ? QStringLiteral("the last copy") : QStringLiteral("the defaults")));
    save();
}

void PreferenceFile::set(const QJsonObject &document) {
    if (m_saved && document == m_document) {
        return;
    }
    m_document = document;
    save();
}

void PreferenceFile::save() {
    const QByteArray bytes = QJsonDocument(m_document).toJson();
    const QString error = write(bytes);
    m_saved = error.isEmpty();
    if (m_saved) {
        m_failureTold = false;
        m_written = bytes;
        m_pause.start();
        m_retry.stop();
        return;
    }
    m_retry.start();
    if (!std::exchange(m_failureTold, true)) {
        tell(QStringLiteral("cannot write the preferences %1: %2; trying again later")
                 .arg(m_path, error));
        QMetaObject::invokeMethod(
            this, [this, error] { Q_EMIT failed(error); }, Qt::QueuedConnection);
    }
}

QString PreferenceFile::write(const QByteArray &bytes) {
    if (m_damaged && QFileInfo::exists(m_path)) {
        const auto kept = wholefile::setAside(m_path);
        if (!kept) {
            return QCoreApplication::translate("PreferenceFile",
                                               "what stands there cannot be moved aside");
        }
        tell(QStringLiteral("kept the previous file as %1").arg(*kept));
    }
    m_damaged = false;
    return wholefile::replace(m_path, bytes, wholefile::Durability::System);
}

void PreferenceFile::backUp() {
    m_pool.clear(); // drop older jobs, which may wait for a slow disk
    m_pool.start([file = m_path, backup = m_backup, bytes = std::exchange(m_written, {})] {
        // Only after the file itself is safe, so that one of the two always is.
        if (wholefile::flush(file).isEmpty()) {
            (void)wholefile::replace(backup, bytes, wholefile::Durability::Disk);
        }
    });
}

} // namespace perchly
