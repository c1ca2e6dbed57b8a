#pragma once

#include "CalendarStore.h"
#include "Clock.h"
#include "KeyedRows.h"

#include <QHash>
#include <QUrl>

namespace perchly {

/// The timed events of the next seven days, earliest start first, and those under way; empty
/// without the user's permission to read the calendars. As rows: "title", "start" in words,
/// "status", whether it is "running", and "link", where to join it, which may be empty.
/// Main thread only.
class Meetings : public perchly::KeyedRows {
    Q_OBJECT
    Q_PROPERTY(QString firstTitle READ firstTitle NOTIFY firstTitleChanged FINAL)
    Q_PROPERTY(QString message READ message NOTIFY messageChanged FINAL)
public:
    Meetings(CalendarStore &calendars, Clock &clock, QObject *parent = nullptr);

    /// In one line; empty without a meeting.
    [[nodiscard]] QString firstTitle() const;
    /// What to say above the list; empty when nothing needs saying.
    [[nodiscard]] QString message() const { return m_message; }

    /// Asks the user for permission, one question at a time, and then looks for meetings.
    Q_INVOKABLE void connectCalendar();
    /// Looks for meetings; the last call counts. Call it twice a minute, as the rows tell the time
    /// that is left.
    Q_INVOKABLE void refresh();
    /// The same, from the calendars themselves, even if no change was announced.
    Q_INVOKABLE void readAgain();

Q_SIGNALS:
    void firstTitleChanged();
    void messageChanged();

private:
    void show(const QList<CalendarEvent> &events);
    void setEvents(const QList<CalendarEvent> &events);
    void setMessage(const QString &message);
    [[nodiscard]] QString statusOf(const CalendarEvent &event) const;

    CalendarStore &m_calendars;
    Clock &m_clock;
    QList<CalendarEvent> m_events;
    QHash<QString, QUrl> m_links; ///< by identifier: finding one takes a while
    QString m_message;
    QString m_connectError; ///< of the last question
    Task m_connecting;
    Task m_loading;
};

} // namespace perchly
