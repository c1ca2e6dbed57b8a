#pragma once

#include "CalendarConsent.h"
#include "CalendarReading.h"
#include "ChildRuns.h"

#include <QElapsedTimer>
#include <QThreadPool>

#include <memory>
#include <vector>

namespace perchly {

/// The calendars that a companion finds and reads. It runs when they changed, and every few minutes
/// in case that went unnoticed; meanwhile questions are answered from what it said last. What the
/// desktop's calendar service noticed is read within a minute, while somebody asks: asking it may
/// be why it writes. No file is opened before the person has allowed it.
class CompanionCalendarStore : public CalendarStore {
    Q_OBJECT
public:
    using Ask =
        std::function<Task(const QList<FoundCalendar> &, CalendarAccess, CalendarAnswer answer)>;

    /// The companion's absolute path, empty when there is none; the file that remembers the answer;
    /// and who asks the person, if anybody can.
    CompanionCalendarStore(QString program, const QString &consentFile, Ask ask);

    [[nodiscard]] CalendarAccess access() const override { return m_consent.access(); }
    [[nodiscard]] Task requestAccess(AccessCompletion completion) override;
    [[nodiscard]] Task events(Clock::TimePoint from, Clock::TimePoint to,
                              EventsCompletion completion) override;
    void expectChange() override { m_current = false; }

private:
    class Request;
    struct Window {
        Clock::TimePoint from;
        Clock::TimePoint to;
        [[nodiscard]] bool holds(const Window &other) const {
            return from <= other.from && other.to <= to;
        }
    };
    struct Call {
        Window window;
        EventsCompletion completion;
    };
    struct CallTask;

    [[nodiscard]] bool isKnown(const Window &window) const;
    void answerWaiting();
    void read(const Window &window);
    void takeApart(const ChildResult &result, const Window &window);
    void apply(const CalendarReading &reading, bool failed, const Window &window);
    void watchFolders(const CalendarReading &reading);
    void filesChanged();
    void serviceChanged();
    void consentChanged();

    const QString m_program;
    const Ask m_ask;
    ChildRuns m_runs;
    CalendarConsent m_consent;
    FolderWatch m_watch;
    FolderWatch m_serviceWatch;
    QStringList m_watched;
    std::vector<std::weak_ptr<Call>> m_waiting;
    CalendarReading m_last; ///< the newest reading that came to its end
    Window m_known;         ///< what that is about
    QByteArray m_zone;      ///< where the machine was then
    bool m_current = false; ///< nothing changed since
    bool m_stale = false;   ///< the service may have more to say by now
    QElapsedTimer m_age;
    bool m_reading = false;
    int m_generation = 0; ///< readings of an earlier one do not count
    Task m_run;
    QThreadPool m_pool; ///< destroyed first: it waits for its thread
};

} // namespace perchly
