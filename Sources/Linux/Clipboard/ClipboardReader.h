#pragma once

#include "CopyFilter.h"

#include <QSocketNotifier>

#include <memory>
#include <mutex>
#include <optional>

namespace perchly {

/// Follows the clipboard's owner and reads copies, one after the other, on a connection to the X
/// server of its own. Lives in a thread that may block; only stop() is for other threads.
class ClipboardReader : public QObject {
    Q_OBJECT
public:
    /// Call first; once more if the connection is lost.
    void connectToServer();

    /// Reads what there is, unless that is for a history and another copy was made after the first
    /// `copies`. readingEnded() follows, with nothing if another copy is made meanwhile.
    void read(quint64 reading, const PasteboardRequest &request, quint64 copies);

    /// Ends a reading under way, and makes no further connection. Any thread.
    void stop();

Q_SIGNALS:
    /// There have been so many copies; the last one belongs to this window.
    void copied(quint64 copies, quint32 owner);
    void readingEnded(quint64 reading, const perchly::PasteboardContent &content);

private:
    void handleEvents();
    void handleOwner(const SelectionClient::OwnerChange &change);
    [[nodiscard]] PasteboardContent contentFor(const PasteboardRequest &request);
    [[nodiscard]] std::optional<QString> textOf(const SelectionAnswer &answer);

    std::mutex m_mutex; ///< held while `m_client` is replaced, and by stop()
    bool m_isStopped = false;
    std::unique_ptr<SelectionClient> m_client;
    std::optional<CopyFilter> m_filter; ///< uses `m_client`
    std::unique_ptr<QSocketNotifier> m_notifier;
    quint64 m_copies = 0;
};

} // namespace perchly
