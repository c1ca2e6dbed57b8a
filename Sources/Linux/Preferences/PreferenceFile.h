#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QObject>
#include <QString>
#include <QThreadPool>
#include <QTimer>

namespace perchly {

/// One JSON object in one file.
///
/// The file is read once, at construction, and replaced by each set() before that returns. After a
/// pause, a background job flushes it to the disk and then keeps a copy as "file.bak", so that one
/// of the two survives a power cut. A file that is torn or unreadable is renamed, and the copy, or
/// else an empty object, takes its place. Edits by other programs while this one runs are
/// overwritten.
///
/// A write that fails is tried again every 30 s, with the next set and by the destructor. Problems
/// are reported on stderr: a damaged file once, failing writes once until one succeeds. Main thread
/// only; the destructor waits for the disk.
class PreferenceFile : public QObject {
    Q_OBJECT
public:
    /// The file's absolute path.
    explicit PreferenceFile(const QString &path);
    ~PreferenceFile() override;

    [[nodiscard]] const QJsonObject &document() const { return m_document; }
    /// Nothing is written if the file holds that already.
    void set(const QJsonObject &document);

Q_SIGNALS:
    /// A write failed, for that reason, for the first time since one succeeded. Emitted later, from
    /// the event loop.
    void failed(const QString &reason);

private:
    void load();
    void recover(const QString &reason);
    void save();
    [[nodiscard]] QString write(const QByteArray &bytes);
    void backUp();

    const QString m_path;
    const QString m_backup;
    QJsonObject m_document;
    QByteArray m_written;   ///< not backed up yet
    bool m_damaged = false; ///< the file at the path must be set aside before a write
    bool m_saved = true;
    bool m_failureTold = false;
    QTimer m_pause; ///< until the backup, as flushing delays the next write
    QTimer m_retry; ///< while a write has failed
    QThreadPool m_pool;
};

} // namespace perchly
