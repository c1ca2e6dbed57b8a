#pragma once

#include "Clock.h"
#include "LaunchGroup.h"
#include "Meeting.h"
#include "QuickLook.h"
#include "Snippet.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QUrl>

namespace perchly {

struct Hosts;
class Productivity;
class ShelfLibrary;
class ShellActions;

/// The extras store: which section the workspace window shows, the launch groups, the pinned
/// snippets, the upcoming meetings, the battery line, captures of the screen and previews. Made on
/// first use. Main thread only.
class ShelfExtras : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString section READ section WRITE setSection NOTIFY sectionChanged FINAL)
    Q_PROPERTY(QString firstEventTitle READ firstEventTitle NOTIFY eventsChanged FINAL)
    Q_PROPERTY(QList<perchly::Meeting> events READ events NOTIFY eventsChanged FINAL)
    Q_PROPERTY(QString calendarMessage READ calendarMessage NOTIFY calendarMessageChanged FINAL)
    Q_PROPERTY(QList<perchly::LaunchGroup> groups READ groups NOTIFY groupsChanged FINAL)
    Q_PROPERTY(QList<perchly::Snippet> snippets READ snippets NOTIFY snippetsChanged FINAL)
    Q_PROPERTY(bool persist READ persist WRITE setPersist NOTIFY persistChanged FINAL)
    Q_PROPERTY(QString battery READ battery NOTIFY batteryChanged FINAL)
    Q_PROPERTY(bool capturing READ capturing NOTIFY capturingChanged FINAL)
    Q_PROPERTY(QString error READ error NOTIFY errorChanged FINAL)
    Q_PROPERTY(QUrl previewUrl READ previewUrl NOTIFY previewUrlChanged FINAL)
public:
    /// Loads the groups and, if they are to be kept, the snippets; reads the battery now, and that
    /// and the meetings every 30 seconds. The hosts and the shell must outlive the store; without a
    /// shell nothing is asked of it.
    explicit ShelfExtras(Hosts &hosts, ShellActions *shell = nullptr, QObject *parent = nullptr);

    /// The selected section of the workspace window, by its title.
    [[nodiscard]] QString section() const { return m_section; }
    void setSection(const QString &section);

    // Launch groups (LaunchGroups.cpp)

    /// Oldest first. Every assignment is stored, or ignored if it is too large.
    [[nodiscard]] const QList<LaunchGroup> &groups() const { return m_groups; }
    void setGroups(const QList<LaunchGroup> &groups);
    /// Saves what the shelf shows and the tray holds under the name, trimmed; a blank name does
    /// nothing.
    Q_INVOKABLE void saveGroup(const QString &name, const perchly::ShelfLibrary *library,
                               const perchly::Productivity *tools);
    /// Asks the desktop to open everything of the group, in order. The last one in that order that
    /// cannot be opened is named in the message of `tools`.
    Q_INVOKABLE void launchGroup(const QUuid &id, perchly::Productivity *tools);
    Q_INVOKABLE void removeGroup(const QUuid &id);

    // Pinned snippets (PinnedSnippets.cpp)

    /// Pinned texts, oldest first. Every assignment goes through persistSnippets().
    [[nodiscard]] const QList<Snippet> &snippets() const { return m_snippets; }
    void setSnippets(const QList<Snippet> &snippets);
    /// Adds a text as it is. An empty one, and one that is pinned already, changes nothing. False
    /// if there is no room for it.
    Q_INVOKABLE bool pin(const QString &text);
    Q_INVOKABLE void removeSnippet(const QUuid &id);
    /// Whether pinned snippets outlive the run; false where nothing is stored.
    [[nodiscard]] bool persist() const;
    void setPersist(bool persist);
    /// Stores the snippets if they are to be kept, else deletes those that are stored.
    void persistSnippets();

    // Meetings (Meetings.cpp)

    /// The timed events of the next seven days, earliest start first, those under way too. Empty
    /// without the person's leave to read their calendars.
    [[nodiscard]] const QList<Meeting> &events() const { return m_events; }
    /// What to say above the list; empty when nothing needs saying.
    [[nodiscard]] QString calendarMessage() const { return m_calendarMessage; }
    /// Title of the first of the events, in one line; empty without one.
    [[nodiscard]] QString firstEventTitle() const;
    /// "In progress", or how many minutes are left. Ask again every 30 seconds.
    Q_INVOKABLE QString meetingStatus(const QDateTime &start) const;
    /// Asks the person for leave, one question at a time, and then looks for meetings.
    Q_INVOKABLE void connectCalendar();
    /// Looks for meetings; the last call counts.
    Q_INVOKABLE void refreshEvents();
    /// The same, from the calendars themselves, even if nothing tells that they have changed.
    Q_INVOKABLE void readEventsAnew();

    // Battery (Battery.cpp)

    /// One line on the battery.
    [[nodiscard]] QString battery() const { return m_battery; }
    Q_INVOKABLE void refreshBattery();

    // Captures of the screen (Capture.cpp)

    /// The person is choosing what to capture, or is about to.
    [[nodiscard]] bool capturing() const { return m_capturing; }
    /// Why the last capture failed; null if it did not.
    [[nodiscard]] QString error() const { return m_error; }
    /// Moves the program's windows out of the way, lets the person choose a part of the screen,
    /// holds its picture in the tray, and shows the workspace window on its files. Nothing happens
    /// while a capture is under way.
    Q_INVOKABLE void screenshot(perchly::Productivity *productivity);

    // Previews (Preview.cpp)

    /// What was previewed last; empty before that.
    [[nodiscard]] QUrl previewUrl() const { return m_previewUrl; }
    /// Shows a file or link in the preview's window, in front. From there the person may go on to
    /// the others of the list that it is one of.
    Q_INVOKABLE void preview(const QUrl &url, const QList<QUrl> &among = {});
    /// The same, but closes the preview if it shows that already.
    Q_INVOKABLE void togglePreview(const QUrl &url, const QList<QUrl> &among = {});

Q_SIGNALS:
    void sectionChanged();
    void groupsChanged();
    void snippetsChanged();
    void persistChanged();
    void eventsChanged();
    void calendarMessageChanged();
    void batteryChanged();
    void capturingChanged();
    void errorChanged();
    void previewUrlChanged();

private:
    void loadGroups();
    void loadSnippets();
    void showEvents(const QList<CalendarEvent> &events);
    void setEvents(const QList<Meeting> &events);
    void setCalendarMessage(const QString &message);
    void setBattery(const QString &battery);
    void endCapture(const QString &path, int status, Productivity *productivity);
    void setCapturing(bool capturing);
    void setError(const QString &error);
    void lookAt(const QUrl &url, const QList<QUrl> &among, QuickLook::Manner manner);

    Hosts &m_hosts;
    ShellActions *m_shell;
    QString m_section = QStringLiteral("Search");
    QList<LaunchGroup> m_groups;
    QList<Snippet> m_snippets;
    QList<Meeting> m_events;
    QString m_calendarMessage = QStringLiteral("Connect Calendar to see upcoming meetings.");
    Task m_connecting;
    QString m_connectError; ///< of the last question
    Task m_loadingEvents;
    QString m_battery = QStringLiteral("Checking battery…");
    bool m_capturing = false;
    QString m_error;
    QUrl m_previewUrl;
    Task m_capture;
    Task m_poll;
};

} // namespace perchly
