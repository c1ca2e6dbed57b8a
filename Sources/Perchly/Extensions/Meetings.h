#pragma once

#include "CalendarStore.h"
#include "Clock.h"
#include "KeyedRows.h"

#include <QHash>
#include <QUrl>

namespace perchly {

/// The current timed events and those of the next seven days, earliest start first; empty without
/// the user's permission to read calendars. Row fields: "title", "start" in words, "status",
/// "running", and "link" for joining, which may be empty. Main thread only.
class Meetings : public perchly::KeyedRows {
    Q_OBJECT
    Q_PROPERTY(QString firstTitle READ firstTitle NOTIFY eventsChanged FINAL)
    Q_PROPERTY(QString message READ message NOTIFY messageChanged FINAL)
public:
    Meetings(CalendarStore &calendars, Clock &clock, QObject *parent = nullptr);

    /// In one line; empty if there is no meeting.
    [[nodiscard]] QString firstTitle() const;
    [[nodiscard]] const QList<CalendarEvent> &events() const { return m_events; }
    /// For joining the event with this identifier; may be empty.
    [[nodiscard]] QUrl linkOf(const QString &identifier) const { return m_links.value(identifier); }
    /// The message above the list, if any.
    [[nodiscard]] QString message() const { return m_message; }

    /// Asks the user for permission, one question at a time, then looks for meetings.
    Q_INVOKABLE void connectCalendar();
    /// Looks for meetings; the last call wins. Call it twice a minute, as the rows show the
    /// remaining time.
    Q_INVOKABLE void refresh();
    /// Like refresh(), but reads the calendars again even if no change was announced. Also called
    /// when the machine wakes up and when the day or the time zone changes.
    Q_INVOKABLE void readAgain();

Q_SIGNALS:
    void eventsChanged();
    void messageChanged();

private:
    void followDay();
    void show(const QList<CalendarEvent> &events);
    void setEvents(const QList<CalendarEvent> &events);
    void setMessage(const QString &message);
    [[nodiscard]] QString statusOf(const CalendarEvent &event) const;

    CalendarStore &m_calendars;
    Clock &m_clock;
    QList<CalendarEvent> m_events;
    QHash<QString, QUrl> m_links; ///< by identifier, since searching a text takes a while
    QString m_message;
    QString m_connectError; ///< from the last question
    Task m_connecting;
    Task m_loading;
    Task m_day;
};

} // namespace perchly
