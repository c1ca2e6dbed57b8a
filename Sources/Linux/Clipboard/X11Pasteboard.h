#pragma once

#include "Pasteboard.h"
#include "Workers.h"

#include <QPointer>
#include <QThread>

namespace perchly {

class ClipboardReader;
class OwnCopy;

/// The clipboard of the X server. Reads in a thread with a connection of its own, however slow or
/// hostile the owner of a copy is; that thread sleeps while nothing is copied. Writes through Qt,
/// which hands our copy over to the clipboard manager when the application object is destroyed and
/// waits up to five seconds for a manager that does not confirm it.
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
    quint64 m_copies = 0; ///< all that the reader reported, also our own
    quint64 m_lastReading = 0;
    QPointer<OwnCopy> m_offered; ///< until Qt drops it for another copy
    ClipboardReader *m_reader;   ///< belongs to the thread
    QThread m_thread;
    Workers m_decoder{1};
};

} // namespace perchly
