#pragma once

#include "Clock.h"
#include "Notifications.h"

#include <QHash>
#include <QObject>

#include <functional>

namespace perchly {

struct Hosts;
class Productivity;
class ShelfExtras;
class ShelfModel;
class ShelfPreferences;
class ShellActions;

/// Shows desktop notifications: of sessions, shortcuts, captures, failures and meetings. Leaves out
/// the kinds that the user has switched off, and those that the open shelf or the workspace window
/// shows anyway. What happens while these are closed is not shown there later. Main thread only.
class Announcements : public QObject {
    Q_OBJECT
public:
    /// Announces events of these, which must outlive it.
    struct Sources {
        const ShelfPreferences &preferences;
        ShelfModel &model;
        Productivity &productivity;
        ShelfExtras &extras;
    };

    /// `seesWorkspace` says whether the workspace window is open and not minimized. The hosts and
    /// the shell must outlive this object.
    Announcements(Hosts &hosts, const Sources &sources, ShellActions &shell,
                  std::function<bool()> seesWorkspace);

private:
    void followFocus();
    void followShortcuts();
    void followCaptures();
    void followFailures();
    void announceFocus(bool wasBreak);
    void announceCapture(const QString &file);
    void announceFailure(const QString &title, const QString &body, std::function<void()> open);
    void remindOfMeetings();
    void announceMeeting(const QString &identifier, const QString &title, Clock::TimePoint start);
    [[nodiscard]] std::function<void()> opening(const QString &section);
    [[nodiscard]] bool sees(const QString &section) const;

    Hosts &m_hosts;
    Notifications &m_notifications;
    Sources m_sources;
    ShellActions &m_shell;
    std::function<bool()> m_seesWorkspace;
    QHash<QString, Clock::TimePoint> m_reminded; ///< meetings announced, with their start
    Task m_captured;
    Task m_reminder;
};

} // namespace perchly
