#include "PreferenceFile.h"

#include "WholeFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>

#include <cstdio>
#include <optional>
#include <utility>

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

} // namespace

PreferenceFile::PreferenceFile(const QString &path)
    : m_path(path)
    , m_backup(path) {
    m_retry.setSingleShot(true);
    connect(&m_retry, &QTimer::timeout, this, &PreferenceFile::save);
    if (const auto *application = QCoreApplication::instance()) {
        connect(application, &QCoreApplication::aboutToQuit, this, [this] {
            if (!m_saved) {
                save();
            }
        });
    }
    wholefile::removeLeftovers(PreferencesBackup::pathFor(m_path));
    wholefile::removeLeftovers(wholefile::resolveLinks(m_path));
    load();
}

void PreferenceFile::load() {
    const auto contents = wholefile::read(m_path);
    if (!contents.exists) {
        // A user who deleted the file wants the defaults; one who lost it wants the backup, which
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

void PreferenceFile::recover(const QString &reason) {
    m_damaged = true;
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
        m_retry.stop();
        m_backup.keep(bytes);
        return;
    }
    m_retry.start(m_failureTold ? nextRetries : firstRetry);
    if (!std::exchange(m_failureTold, true)) {
        tell(QStringLiteral("cannot write the preferences %1: %2; trying again later")
                 .arg(m_path, error));
        QMetaObject::invokeMethod(
            this, [this, error] { Q_EMIT failed(error); }, Qt::QueuedConnection);
    }
}

QString PreferenceFile::write(const QByteArray &bytes) {
    if (bytes.size() > wholefile::maxBytes) {
        return QStringLiteral("they are larger than 64 MiB");
    }
    const QString target = wholefile::resolveLinks(m_path);
    if (m_damaged && QFileInfo::exists(target)) {
        const auto kept = wholefile::setAside(target);
        if (!kept) {
            return QStringLiteral("what stands there cannot be moved aside");
        }
        tell(QStringLiteral("kept what stood there as %1").arg(*kept));
    }
    m_damaged = false;
    return wholefile::replace(target, bytes, wholefile::Durability::System);
}

} // namespace perchly
