#pragma once

#include "CalendarConsent.h"
#include "CalendarQuestion.h"
#include "CalendarReading.h"
#include "ChildRuns.h"
#include "Workers.h"

#include <QElapsedTimer>

#include <memory>
#include <vector>

namespace perchly {

/// The calendars that a companion finds and reads. Each calendar has its own run, so that a hostile
/// or huge one harms no other. The companion runs when calendars change, and every few minutes in
/// case a change went unnoticed; in between, the last reading answers calls. Changes by Evolution
/// Data Server are read within a minute, not at once, since reading makes it write, too. No
/// calendar is opened without the user's consent.
class CompanionCalendarStore : public CalendarStore {
    Q_OBJECT
public:
    using Ask =
        std::function<Task(const QList<FoundCalendar> &, CalendarAccess, CalendarAnswer answer)>;

    /// Takes the companion's absolute path, empty if it is not installed; the file that stores the
    /// consent; and how to ask for it, null if nothing can ask.
    CompanionCalendarStore(QString program, const QString &consentFile, Ask ask);

    [[nodiscard]] CalendarAccess access() const override { return m_consent.access(); }
    [[nodiscard]] Task requestAccess(AccessCompletion completion) override;
    [[nodiscard]] Task events(Clock::TimePoint from, Clock::TimePoint to,
                              EventsCompletion completion) override;
    [[nodiscard]] bool isReadable() const override;
    void expectChange() override { m_isCurrent = false; }

private:
    struct Call;
    struct Round;

    [[nodiscard]] Task run(const QStringList &arguments, ChildRuns::Completion completion);
    [[nodiscard]] bool isKnown(const Call &call) const;
    void answerWaiting();
    void startRound(const Call &call);
    void watchFolders(const CalendarList &list);
    void readCalendars(const QList<FoundCalendar> &calendars);
    void finishRound();
    void consentChanged();

    const QString m_program;
    const Ask m_ask;
    ChildRuns m_runs;
    CalendarConsent m_consent;
    FolderWatch m_watch;
    FolderWatch m_serviceWatch;
    std::vector<std::weak_ptr<Call>> m_waiting;
    std::shared_ptr<Round> m_round; ///< in progress
    std::shared_ptr<Round> m_last;  ///< never null
    bool m_isCurrent = false;       ///< nothing changed since then
    bool m_isStale = false;         ///< the service or a calendar may now have more
    QElapsedTimer m_age;
    Workers m_workers{1};
};

} // namespace perchly
