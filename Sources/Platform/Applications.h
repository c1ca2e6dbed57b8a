#pragma once

#include <QImage>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <functional>

namespace perchly {

/// Opens applications and links as the desktop does. Nothing blocks but icon() and themeIcon(), and
/// only these may be called on other threads.
class Applications {
public:
    /// Called once on the main thread with an empty string, or the error.
    using Completion = std::function<void(const QString &error)>;

    virtual ~Applications() = default;

    /// Launches the application with the desktop entry at this absolute path, in any folder: for
    /// entries that the user has put on the shelf. Opens anything else like openUrl().
    virtual void launch(const QString &path, Completion completion = {}) = 0;

    /// The same, only for entries in the data folders. Any other desktop entry may be a download
    /// and is opened like openUrl().
    virtual void open(const QString &path, Completion completion = {}) = 0;

    /// The application's picture in the icon theme (empty for Qt's), for display at `side` pixels
    /// wide and high; null if it has none. Blocks while reading files; may be called on any thread,
    /// and on several at once.
    [[nodiscard]] virtual QImage icon(const QString &path, int side, const QString &theme) = 0;

    /// The first of these icons that the user's icon theme has, for display at `side` pixels; null
    /// if it has none. Blocks like icon(), on any thread.
    [[nodiscard]] virtual QImage themeIcon(const QStringList &names, int side) = 0;

    /// Opens a link or file with the user's default program.
    virtual void openUrl(const QUrl &url, Completion completion = {}) = 0;
};

} // namespace perchly
