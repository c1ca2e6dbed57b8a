#pragma once

#include "CopyClient.h"

#include <QSet>

#include <optional>

namespace perchly {

/// Decides which copies stay out of the history: marked ones, our own, and take-overs. When a
/// program exits or empties the clipboard, a clipboard manager may offer the same content again,
/// perhaps encoded differently and without its markers. A change of owner counts as such a
/// take-over if at least two of these hold:
///  - the previous owner, another client, released the clipboard less than two seconds before;
///  - the new owner is the client that owns CLIPBOARD_MANAGER;
///  - the content is the same: equal text (the paths, for files) or an image with equal pixels.
/// A user's copy of the same content in another program is recorded, as that program takes the
/// clipboard from its owner, or takes it later. So is the take-over of a copy that was not read
/// completely, for example because its owner exited at once. Content that was marked once stays
/// out for the rest of the run, even without markers. Keeps only digests, in memory. Not for the
/// main thread.
class CopyFilter {
public:
    explicit CopyFilter(CopyClient &client)
        : m_client(client) {}

    void handleChange(const CopyChange &change);

    /// Remembers the current copy, and removes its image and text if it must stay out. Ignores
    /// content without types, such as that of an abandoned reading.
    void apply(const PasteboardRequest &request, PasteboardContent &content);

private:
    [[nodiscard]] bool isTakeOver() const;

    CopyClient &m_client;
    quint32 m_copier = 0;                                ///< the program that made the last copy
    std::optional<std::chrono::milliseconds> m_released; ///< while there is no owner
    bool m_wasJustReleased = false;                      ///< before the current copy
    std::optional<QByteArray> m_previous;                ///< digests, if the copies were read
    std::optional<QByteArray> m_present;
    QSet<QByteArray> m_marked;
};

} // namespace perchly
