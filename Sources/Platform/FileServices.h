#pragma once

#include <QList>
#include <QString>
#include <QUrl>

#include <functional>

namespace perchly {

/// Reveals and shares files and links through the desktop. Nothing blocks; every completion is
/// called once, on the main thread and never before the call has returned. Main thread only.
class FileServices {
public:
    /// Receives an empty string, or the error.
    using Completion = std::function<void(const QString &error)>;

    /// A program to which a file or link can be sent.
    struct ShareTarget {
        QString id; ///< only for share()
        QString name;
        bool operator==(const ShareTarget &) const = default;
    };
    using TargetsCompletion = std::function<void(const QList<ShareTarget> &targets)>;

    virtual ~FileServices() = default;

    /// Shows a local file or folder selected in the file manager, or only its parent folder if no
    /// file manager can select.
    virtual void reveal(const QUrl &file, Completion completion) = 0;

    /// The applications that open this type of file or link, the user's default first, then e-mail.
    virtual void findShareTargets(const QUrl &url, TargetsCompletion completion) = 0;

    virtual void share(const QUrl &url, const QString &targetId, Completion completion) = 0;
};

} // namespace perchly
