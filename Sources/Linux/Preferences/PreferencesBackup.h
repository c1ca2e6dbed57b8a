#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QString>
#include <QThreadPool>
#include <QTimer>

namespace perchly {

/// Brings a file of preferences to the disk in the background, and keeps the last version that
/// arrived there beside it. A file system that is busy with that delays the next replacement of the
/// file by some milliseconds, so it waits for a pause between two sets, and skips all versions but
/// the newest. Main thread only; the destructor waits for the disk.
class PreferencesBackup {
public:
    /// The backup stands beside the file under the name "file.bak".
    explicit PreferencesBackup(const QString &file);
    ~PreferencesBackup();

    [[nodiscard]] static QString pathFor(const QString &file);

    /// The file has been replaced and holds these bytes now. Failures are silent: the file itself
    /// is whole, and the next version tries again.
    void keep(const QByteArray &bytes);

private:
    void write();

    QString m_file;
    QByteArray m_newest;
    QTimer m_timer;
    QElapsedTimer m_waiting; ///< since the first version that is not on the disk
    QThreadPool m_pool;
};

} // namespace perchly
