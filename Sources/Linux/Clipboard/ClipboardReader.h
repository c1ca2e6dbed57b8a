#pragma once

#include "CopyFilter.h"

#include <QSocketNotifier>

#include <memory>
#include <mutex>
#include <optional>

namespace perchly {

/// Follows the clipboard and reads copies, one after the other, on its own connection to the window
/// system. Lives in a thread that may block; only stop() may be called from other threads.
class ClipboardReader : public QObject {
    Q_OBJECT
public:
    using Connect = std::function<std::unique_ptr<CopyClient>(CopyClient::Changed changed)>;

    /// Calls `connect` in its thread.
    explicit ClipboardReader(Connect connect)
        : m_connect(std::move(connect)) {}

    /// Connects or reconnects. Call it first.
    void connectToServer();

    /// Emits readingEnded() when done. Its content is empty if another copy is made meanwhile and,
    /// for a history, if copied() has already reported more than `copies`.
    void read(quint64 reading, const PasteboardRequest &request, quint64 copies);

    /// Calls the function, unless the server is gone.
    void withClient(const std::function<void(CopyClient &client)> &function);

    /// Ends the current reading and disconnects for good. Any thread.
    void stop();

Q_SIGNALS:
    /// `copies` counts all copies so far; `client` made the last one.
    void copied(quint64 copies, quint32 client);
    void readingEnded(quint64 reading, const perchly::PasteboardContent &content);

private:
    void handleEvents();
    void handleChange(const CopyChange &change);
    [[nodiscard]] PasteboardContent contentFor(const PasteboardRequest &request);

    const Connect m_connect;
    std::mutex m_mutex; ///< held by stop() and while `m_client` is replaced
    bool m_isStopped = false;
    std::unique_ptr<CopyClient> m_client;
    std::optional<CopyFilter> m_filter; ///< uses `m_client`
    std::unique_ptr<QSocketNotifier> m_notifier;
    quint64 m_copies = 0;
};

} // namespace perchly
