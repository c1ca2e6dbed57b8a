#pragma once

#include <QByteArray>
#include <QString>
#include <QThreadPool>

#include <memory>

namespace perchly {

/// Brings the preferences to the disk in the background, one generation at a time, and keeps the
/// last one that arrived there beside them. A file system that is busy with that holds up the next
/// replacement of the file by some milliseconds, so it waits for a pause between two sets, and
/// generations that are not the newest then are passed over. Main thread only; the destructor waits
/// for the disk.
class PreferencesBackup {
public:
    /// The backup stands beside the file under the name "file.bak".
    explicit PreferencesBackup(const QString &file);
    ~PreferencesBackup();

    [[nodiscard]] static QString pathFor(const QString &file);

    /// The file has been replaced and holds these bytes now. Failures are silent: the file itself
    /// is whole, and the next generation tries again.
    void keep(const QByteArray &bytes);

private:
    struct Queue;

    QString m_file;
    std::shared_ptr<Queue> m_queue;
    QThreadPool m_pool;
};

} // namespace perchly
