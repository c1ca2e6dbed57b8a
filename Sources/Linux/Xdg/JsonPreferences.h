#pragma once

#include "Preferences.h"
#include "PreferencesBackup.h"
#include "WholeFile.h"

#include <QJsonObject>
#include <QTimer>

#include <optional>

namespace perchly {

/// The preferences as one JSON object in one file (see PreferenceJson.h for its values).
///
/// The file is read once, at construction, and replaced as a whole by each set before the set
/// returns; a background job then brings it to the disk and keeps a backup for the case that a
/// power cut tears the newest version. JSON values of other kinds read as absent and stay in the
/// file. A file that is torn, unreadable or not a JSON object is moved aside under another name,
/// and the backup, or else the defaults, take its place. So is a file that somebody else has put
/// there, or changed, since it was read or written last. A symbolic link is written through.
///
/// A number that is not finite is not stored: the key keeps what it had, and is announced.
/// A write that fails is tried again with the next set, after 5 seconds, then each minute, and at
/// the end of the application. Problems are told on standard error: a damaged file once, failing
/// writes once until one succeeds.
class JsonPreferences : public Preferences {
    Q_OBJECT
public:
    /// The file's absolute path.
    explicit JsonPreferences(const QString &path, QObject *parent = nullptr);

    /// "perchly/preferences.json" in the person's configuration folder.
    [[nodiscard]] static QString defaultPath();

    [[nodiscard]] std::optional<PreferenceValue> value(const QString &key) const override;
    void setValues(const PreferenceEntries &entries) override;
    void removeValue(const QString &key) override;

private:
    void load();
    void recover(const QString &reason);
    void save();
    [[nodiscard]] QString write(const QString &target, const QByteArray &bytes);
    [[nodiscard]] bool isForeign(const QString &target) const;
    void noteWritten(const QString &target, const QByteArray &bytes);

    QString m_path;
    QJsonObject m_document;
    PreferencesBackup m_backup;
    bool m_foreignFile = false;   ///< something that must not be replaced stands at the path
    wholefile::Version m_version; ///< of the file as it was read or written last
    QByteArray m_bytes;           ///< what it held then
    bool m_saved = true;          ///< the file holds the document
    QTimer m_retry;
    bool m_failureTold = false;
};

} // namespace perchly
