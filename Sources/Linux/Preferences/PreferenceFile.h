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
/// The constructor reads the file, and each set() replaces it before it returns. After a pause, a
/// background job flushes the file to the disk and then keeps a copy as "file.bak", so that one of
/// the two survives a power cut. A damaged or unreadable file is renamed and replaced by the copy,
/// or else an empty object. Edits by other programs meanwhile are overwritten.
///
/// A failed write is retried every 30 s, on the next set() and in the destructor. Problems are
/// reported on stderr: a damaged file once, failing writes once until one succeeds. Main thread
/// only; the destructor waits for the disk.
class PreferenceFile : public QObject {
    Q_OBJECT
public:
    /// Takes the file's absolute path.
    explicit PreferenceFile(const QString &path);
    ~PreferenceFile() override;

    [[nodiscard]] const QJsonObject &document() const { return m_document; }
    /// Writes nothing if the file already holds the document.
    void set(const QJsonObject &document);

Q_SIGNALS:
    /// A write failed, for the first time since one succeeded. Emitted later, from the event loop.
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
    QByteArray m_written;   ///< not yet backed up
    bool m_damaged = false; ///< the file must be set aside before a write
    bool m_saved = true;
    bool m_failureTold = false;
    QTimer m_pause; ///< until the backup, as flushing would delay the next write
    QTimer m_retry; ///< while a write has failed
    QThreadPool m_pool;
};

} // namespace perchly
