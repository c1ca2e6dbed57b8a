#pragma once

#include <QList>
#include <QString>

#include <functional>

namespace perchly {

/// A message that the desktop shows. Texts are plain.
struct Notification {
    struct Action {
        QString label;
        std::function<void()> run;
    };

    QString tag; ///< replaces the open notification with the same tag
    QString title;
    QString body;
    std::function<void()> open; ///< runs when the user clicks the notification itself
    QList<Action> actions;      ///< buttons, if the desktop has them
    QString picture = {};       ///< a file's absolute path; may be empty
};

/// The desktop's notifications. Nothing blocks; without a desktop that shows them, nothing happens.
/// Actions run on the main thread, as long as the notification is open. Main thread only.
class Notifications {
public:
    virtual ~Notifications() = default;

    virtual void show(const Notification &notification) = 0;

    /// Closes the notification with that tag, if it is still open.
    virtual void close(const QString &tag) = 0;
};

} // namespace perchly
