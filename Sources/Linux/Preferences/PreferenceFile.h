#pragma once

#include "PreferencesBackup.h"

#include <QJsonObject>
#include <QObject>
#include <QString>
#include <QTimer>

namespace perchly {

/// One JSON object in one file.
///
/// The file is read once, at construction, and replaced by each set() before that returns; a
/// background job then brings it to the disk and keeps a backup in case a power cut tears the
/// newest version. A file that is torn, unreadable or not a JSON object is moved aside under
/// another name, and the backup, or else an empty object, takes its place. A symbolic link is
/// written through. Edits by other programs while this one runs are overwritten.
///
/// A write that fails is tried again with the next set, after 5 seconds, then each minute, and at
/// the end of the application. Problems are reported on stderr: a damaged file once, failing writes
/// once until one succeeds. Main thread only.
class PreferenceFile : public QObject {
    Q_OBJECT
public:
    /// The file's absolute path.
    explicit PreferenceFile(const QString &path);

    [[nodiscard]] const QJsonObject &document() const { return m_document; }
    /// Nothing is written if the file holds that already. What would be too large to be read back
    /// counts as a failed write.
    void set(const QJsonObject &document);
    /// Whether the file holds the document.
    [[nodiscard]] bool isSaved() const { return m_saved; }

Q_SIGNALS:
    /// A write failed, for that reason, for the first time since one succeeded. Emitted later, from
    /// the event loop.
    void failed(const QString &reason);

private:
    void load();
    void recover(const QString &reason);
    void save();
    [[nodiscard]] QString write(const QByteArray &bytes);

    QString m_path;
    QJsonObject m_document;
    PreferencesBackup m_backup;
    bool m_damaged = false; ///< what stands at the path must be moved aside before a write
    bool m_saved = true;
    QTimer m_retry;
    bool m_failureTold = false;
};

} // namespace perchly
