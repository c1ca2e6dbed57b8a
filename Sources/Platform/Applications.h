#pragma once

#include <QImage>
#include <QString>
#include <QUrl>

#include <functional>

namespace perchly {

/// Opening applications and links, as the desktop does it. Nothing blocks, and all but
/// icon() is for the main thread.
class Applications {
public:
    /// Called once on the main thread: empty when it was opened, else why it was not.
    using Completion = std::function<void(const QString &error)>;

    virtual ~Applications() = default;

    /// Launches the application whose desktop entry has this absolute path, wherever it is: for
    /// entries that the user has put on the shelf. Anything else is opened like openUrl() does.
    virtual void launch(const QString &path, Completion completion = {}) = 0;

    /// The same for entries in the data folders. Any other desktop entry may be a download and is
    /// opened like openUrl() does.
    virtual void open(const QString &path, Completion completion = {}) = 0;

    /// The application's own picture, to be shown `side` pixels wide and high; null if it has none.
    /// Blocks while files are read, and may be called on any thread, also on several at once.
    [[nodiscard]] virtual QImage icon(const QString &path, int side) = 0;

    /// Opens a link or file with the user's own choice of program.
    virtual void openUrl(const QUrl &url, Completion completion = {}) = 0;
};

} // namespace perchly
