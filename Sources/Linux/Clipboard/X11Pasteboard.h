#pragma once

#include "Pasteboard.h"
#include "Workers.h"

#include <QPointer>
#include <QThread>

namespace perchly {

class ClipboardReader;
class OwnCopy;

/// The X server's clipboard. Reads in a thread with its own connection, as the owner of a copy may
/// be slow or hostile; the thread sleeps while nothing is copied. Writes through Qt, which passes
/// our copy to the clipboard manager when the application object is destroyed, and waits up to five
/// seconds if the manager does not confirm.
class X11Pasteboard : public Pasteboard {
    Q_OBJECT
public:
    explicit X11Pasteboard(QObject *parent = nullptr);
    ~X11Pasteboard() override;

    [[nodiscard]] qint64 changeCount() const override { return m_count; }
    [[nodiscard]] Task read(const PasteboardRequest &request, Completion completion) override;
    /// Writing needs a QGuiApplication on X.
    void write(const QString &text) override;
    void writeImage(const QByteArray &encoded) override;
    void writeItems(const QList<QUrl> &urls) override;

private:
    void offer(OwnCopy *copy);
    void handleCopy(quint64 copies, quint32 owner);

    qint64 m_count = 0;
    quint64 m_copies = 0; ///< as counted by the reader, including ours
    quint64 m_lastReading = 0;
    QPointer<OwnCopy> m_offered; ///< null once Qt drops it for another copy
    ClipboardReader *m_reader;   ///< lives in the thread
    QThread m_thread;
    Workers m_decoder{1};
};

} // namespace perchly
