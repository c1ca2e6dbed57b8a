#pragma once

#include <QString>
#include <QUrl>

#include <functional>

namespace perchly {

/// Opening applications and links, as the desktop does it. Nothing blocks. Main thread only.
class Applications {
public:
    /// Called once on the main thread: empty when it was opened, else why it was not.
    using Completion = std::function<void(const QString &error)>;

    virtual ~Applications() = default;

    /// Launches the application whose desktop entry has this absolute path.
    virtual void open(const QString &path, Completion completion = {}) = 0;

    /// Opens a link or file with the person's own choice of program.
    virtual void openUrl(const QUrl &url, Completion completion = {}) = 0;
};

} // namespace perchly
