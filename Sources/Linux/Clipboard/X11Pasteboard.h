#pragma once

#include "Pasteboard.h"

#include <map>
#include <memory>

namespace perchly {

class SelectionThread;

/// The clipboard of the X server. A thread of its own talks to the server and to the programs that
/// own a copy, however slow, mute or hostile they are; it sleeps while nothing is copied. What was
/// written last is handed to the desktop's clipboard manager, if there is one, on destruction,
/// which waits for that a second at most.
class X11Pasteboard : public Pasteboard {
    Q_OBJECT
public:
    explicit X11Pasteboard(QObject *parent = nullptr);
    ~X11Pasteboard() override;

    [[nodiscard]] qint64 changeCount() const override { return m_count; }
    [[nodiscard]] Task read(const PasteboardRequest &request, Completion completion) override;
    void write(const QString &text) override;
    void writeImage(const QByteArray &encoded) override;
    void writeItems(const QList<QUrl> &urls) override;

private:
    class Reading;

    void handleCopy(quint64 write);
    void handleRead(quint64 reading, const PasteboardContent &content);
    void cancel(quint64 reading);

    qint64 m_count = 0;
    quint64 m_copies = 0; ///< of other programs, also those that our own write has replaced since
    quint64 m_writes = 0;
    quint64 m_lastReading = 0;
    std::map<quint64, Completion> m_completions;
    std::unique_ptr<SelectionThread> m_thread; ///< last, so that it ends first
};

} // namespace perchly
