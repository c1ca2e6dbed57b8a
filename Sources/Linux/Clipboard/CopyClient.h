#pragma once

#include "Pasteboard.h"

#include <QByteArray>
#include <QByteArrayList>

#include <chrono>
#include <functional>
#include <optional>

namespace perchly {

/// One format of a copy, as its owner sent it.
struct CopyAnswer {
    enum class Outcome {
        Delivered,
        Refused, ///< or not of the requested format
        TooLong, ///< longer than the limit; nothing is kept
        Silent,  ///< no answer in time, or the copy was replaced meanwhile
    };
    enum class Encoding { Unicode, Latin1 };

    Outcome outcome = Outcome::Silent;
    QByteArray bytes = {};
    Encoding encoding = Encoding::Unicode; ///< of a text
};

/// A program copied, or released the clipboard without another copy.
struct CopyChange {
    enum class Kind { Copied, Released };

    Kind kind = Kind::Copied;
    std::chrono::milliseconds time{0}; ///< of any clock
    quint32 client = 0;                ///< identifies the program; 0 if unknown
};

/// A connection to the window system for reading copies in a thread that may block. Not
/// thread-safe, except shutDown().
class CopyClient {
public:
    using TimePoint = std::chrono::steady_clock::time_point;
    /// Called from within handleEvents(), formats() or fetch().
    using Changed = std::function<void(const CopyChange &change)>;

    CopyClient() = default;
    virtual ~CopyClient() = default;
    CopyClient(const CopyClient &) = delete;
    CopyClient &operator=(const CopyClient &) = delete;

    /// False if the server is gone or cannot report copies.
    [[nodiscard]] virtual bool isAlive() const = 0;
    /// Readable when handleEvents() has something to do, which the other calls may also cause.
    [[nodiscard]] virtual int descriptor() const = 0;
    virtual void handleEvents() = 0;
    /// Ends the connection and every wait on it. Any thread.
    virtual void shutDown() const = 0;

    /// Which of the formats a copy offers, in their order; nullopt if its owner does not say.
    [[nodiscard]] virtual std::optional<QByteArrayList>
    offered(PasteboardSource source, const QByteArrayList &formats, TimePoint latest) = 0;

    /// Requests one format and waits for all of it: until `latest`, at most three seconds for each
    /// part, and for the clipboard until the next copy.
    [[nodiscard]] virtual CopyAnswer fetch(PasteboardSource source, const QByteArray &format,
                                           qsizetype maxBytes, TimePoint latest) = 0;

    /// Whether the owner of the clipboard is its manager, which takes over other programs' copies.
    [[nodiscard]] virtual bool isFromManager() = 0;
};

} // namespace perchly
