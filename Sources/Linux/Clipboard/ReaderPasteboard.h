#pragma once

#include "ClipboardReader.h"
#include "Workers.h"

#include <QPointer>
#include <QThread>

namespace perchly {

class OwnCopy;

/// A clipboard that is read in a thread with its own connection to the window system, as the owner
/// of a copy may be slow or hostile. The thread sleeps while nothing is copied.
class ReaderPasteboard : public Pasteboard {
    Q_OBJECT
public:
    ~ReaderPasteboard() override;

    [[nodiscard]] qint64 changeCount() const override { return m_count; }
    [[nodiscard]] Task read(const PasteboardRequest &request, Completion completion) override;
    void write(const QString &text) override;
    void writeImage(const QByteArray &encoded) override;
    void writeItems(const QList<QUrl> &urls) override;

protected:
    /// `connect` is called in the thread, which starts at once.
    ReaderPasteboard(ClipboardReader::Connect connect, QObject *parent);

    /// Puts our copy on the clipboard, and owns it; null empties the clipboard.
    virtual void offer(OwnCopy *copy) = 0;

    /// Whether that client is this program, which has not lost the clipboard since offer().
    [[nodiscard]] virtual bool isOurs(quint32 client) const = 0;

    /// Calls a function in the reader's thread.
    void withClient(const std::function<void(CopyClient &client)> &function);

private:
    void handleCopy(quint64 copies, quint32 client);

    qint64 m_count = 0;
    quint64 m_copies = 0; ///< as counted by the reader, including ours
    quint64 m_lastReading = 0;
    ClipboardReader *m_reader; ///< lives in the thread
    QThread m_thread;
    Workers m_decoder{1};
};

} // namespace perchly
