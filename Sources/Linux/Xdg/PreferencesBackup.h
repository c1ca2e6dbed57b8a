#pragma once

#include <QByteArray>
#include <QString>
#include <QThreadPool>

#include <memory>

namespace perchly {

/// Brings the preferences to the disk in the background, one generation at a time, and keeps the
/// last one that arrived there beside them. Generations that come while one is being written are
/// passed over for the newest. Main thread only; the destructor waits for the disk.
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
