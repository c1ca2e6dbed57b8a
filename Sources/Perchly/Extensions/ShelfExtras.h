#pragma once

#include "Meeting.h"
#include "Snippet.h"

#include <QList>
#include <QObject>
#include <QString>

namespace perchly {

struct Hosts;

/// The extras store: which section the workspace window shows, the pinned snippets, the upcoming
/// meetings, and the battery line. Made on first use. Main thread only.
class ShelfExtras : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString section READ section WRITE setSection NOTIFY sectionChanged FINAL)
    Q_PROPERTY(QString firstEventTitle READ firstEventTitle NOTIFY eventsChanged FINAL)
    Q_PROPERTY(QList<perchly::Meeting> events READ events NOTIFY eventsChanged FINAL)
    Q_PROPERTY(QString calendarMessage READ calendarMessage NOTIFY calendarMessageChanged FINAL)
    Q_PROPERTY(QList<perchly::Snippet> snippets READ snippets NOTIFY snippetsChanged FINAL)
    Q_PROPERTY(QString battery READ battery NOTIFY batteryChanged FINAL)
public:
    /// The hosts must outlive the store. Looks for meetings every 30 seconds.
    explicit ShelfExtras(Hosts &hosts, QObject *parent = nullptr);

    /// The selected section of the workspace window, by its title.
    [[nodiscard]] QString section() const { return m_section; }
    void setSection(const QString &section);

    /// Pinned texts, oldest first, no two equal.
    [[nodiscard]] const QList<Snippet> &snippets() const { return m_snippets; }
    /// Adds a text as it is. An empty one, and one that is pinned already, changes nothing.
    Q_INVOKABLE void pin(const QString &text);

    // Meetings (Meetings.cpp)

    /// The timed events of the next seven days, earliest start first, those under way too. Empty
    /// without the person's leave to read their calendars.
    [[nodiscard]] const QList<Meeting> &events() const { return m_events; }
    /// What to say above the list; empty when nothing needs saying.
    [[nodiscard]] QString calendarMessage() const { return m_calendarMessage; }
    /// Title of the first of the events; empty without one.
    [[nodiscard]] QString firstEventTitle() const;
    /// "In progress", or how many minutes are left. Ask again every 30 seconds.
    Q_INVOKABLE QString meetingStatus(const QDateTime &start) const;
    /// Asks the person for leave, one question at a time, and then looks for meetings.
    Q_INVOKABLE void connectCalendar();
    /// Looks for meetings; the last call counts.
    Q_INVOKABLE void refreshEvents();

    /// One line on the battery.
    [[nodiscard]] QString battery() const { return m_battery; }

Q_SIGNALS:
    void sectionChanged();
    void snippetsChanged();
    void eventsChanged();
    void calendarMessageChanged();
    void batteryChanged();

private:
    void showEvents(const QList<CalendarEvent> &events);
    void setEvents(const QList<Meeting> &events);
    void setCalendarMessage(const QString &message);

    Hosts &m_hosts;
    QString m_section = QStringLiteral("Search");
    QList<Snippet> m_snippets;
    QList<Meeting> m_events;
    QString m_calendarMessage = QStringLiteral("Connect Calendar to see upcoming meetings.");
    Task m_connecting;
    Task m_loadingEvents;
    QString m_battery = QStringLiteral("Checking battery…");
    Task m_poll;
};

} // namespace perchly
