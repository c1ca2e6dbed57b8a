#include "CompanionCalendarStore.h"

#include <QFile>
#include <QTimeZone>

#include <optional>
#include <utility>

namespace perchly {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int maxRuns = 3;     // at the same time
constexpr auto timeLimit = 6s; // the companion ends itself earlier
constexpr qsizetype maxOutput = qsizetype(16) << 20;
constexpr std::chrono::milliseconds maxAge = 5min;
constexpr std::chrono::milliseconds maxServiceAge = 15min; // reading may make the service download
constexpr std::chrono::milliseconds maxStaleAge = 1min;
constexpr std::chrono::milliseconds echoTime = 15s; // reading makes the service write
constexpr auto readAhead = 24h;

QString secondsOf(Clock::TimePoint moment) {
    return QString::number(
        std::chrono::floor<std::chrono::seconds>(moment).time_since_epoch().count());
}

std::optional<CalendarList> listIn(const ChildResult &result) {
    CalendarList list;
    QDataStream stream(result.output);
    stream >> list;
    const bool isWhole = result.status == 0 && stream.status() == QDataStream::Ok;
    return isWhole ? std::optional(list) : std::nullopt;
}

} // namespace

struct CompanionCalendarStore::Call {
    Clock::TimePoint from;
    Clock::TimePoint to;
    EventsCompletion completion;
};

/// One run that finds the calendars, then one for each calendar.
struct CompanionCalendarStore::Round {
    Clock::TimePoint from;
    Clock::TimePoint to;
    QByteArray zone = QTimeZone::systemTimeZoneId();
    CalendarReading reading;
    std::vector<Task> runs;
    qsizetype open = 0; ///< calendars still to read
};

CompanionCalendarStore::CompanionCalendarStore(QString program, const QString &consentFile, Ask ask)
    : m_program(std::move(program))
    , m_ask(std::move(ask))
    , m_runs(maxRuns)
    , m_consent(consentFile, [this] { consentChanged(); })
    , m_watch(
          [this] {
              m_isCurrent = false;
              if (access() == CalendarAccess::Granted) {
                  Q_EMIT changed();
              }
          },
          ".ics")
    , m_serviceWatch(
          [this] { m_isStale = m_isStale || (!m_round && m_age.hasExpired(echoTime.count())); }, "")
    , m_last(std::make_shared<Round>()) {}

Task CompanionCalendarStore::run(const QStringList &arguments, ChildRuns::Completion completion) {
    return m_runs.run(m_program, arguments, {timeLimit, maxOutput}, OnStop::EndChild,
                      std::move(completion));
}

/// Finds calendars, then asks the user, then stores the answer.
Task CompanionCalendarStore::requestAccess(AccessCompletion completion) {
    struct Request : ScheduledTask {
        Task step;
    };
    auto request = std::make_unique<Request>();
    const auto finish = [this, completion = std::move(completion)](const QString &error) {
        completion({access(), error});
    };
    const auto remember = [this, finish](std::optional<bool> isAllowed) {
        const QString error = isAllowed ? m_consent.remember(*isAllowed ? CalendarAccess::Granted
                                                                        : CalendarAccess::Denied)
                                        : QString();
        finish(error.isEmpty() ? error : tr("Your answer could not be kept: %1.").arg(error));
    };
    const auto ask = [this, finish, remember, &step = request->step](const ChildResult &result) {
        const auto list = listIn(result);
        if (list && m_ask) {
            step = m_ask(list->calendars, access(), remember);
        } else {
            finish(!m_ask                ? tr("There is no display to ask you on.")
                   : m_program.isEmpty() ? tr("The calendar reader is not installed.")
                                         : tr("The calendars could not be looked for."));
        }
    };
    request->step = run({u"list"_s}, ask);
    return request;
}

Task CompanionCalendarStore::events(Clock::TimePoint from, Clock::TimePoint to,
                                    EventsCompletion completion) {
    struct CallTask : ScheduledTask {
        std::shared_ptr<Call> call;
    };
    auto task = std::make_unique<CallTask>();
    task->call = std::make_shared<Call>(Call{from, to, std::move(completion)});
    m_waiting.push_back(task->call);
    QMetaObject::invokeMethod(this, &CompanionCalendarStore::answerWaiting, Qt::QueuedConnection);
    return task;
}

bool CompanionCalendarStore::isReadable() const {
    return !m_program.isEmpty() && m_last->reading.isComplete;
}

bool CompanionCalendarStore::isKnown(const Call &call) const {
    const bool hasService = !m_last->reading.list.serviceFolders.isEmpty();
    const auto age = m_isStale ? maxStaleAge : hasService ? maxServiceAge : maxAge;
    return access() != CalendarAccess::Granted || m_program.isEmpty() ||
           (m_isCurrent && m_last->from <= call.from && call.to <= m_last->to &&
            !m_age.hasExpired(age.count()) && m_last->zone == QTimeZone::systemTimeZoneId());
}

void CompanionCalendarStore::answerWaiting() {
    std::vector<std::weak_ptr<Call>> later;
    for (const auto &waiting : std::exchange(m_waiting, {})) {
        const std::shared_ptr<Call> call = waiting.lock();
        if (call && isKnown(*call)) {
            call->completion(access() == CalendarAccess::Granted
                                 ? m_last->reading.eventsBetween(call->from, call->to)
                                 : QList<CalendarEvent>());
        } else if (call) {
            later.push_back(waiting);
            if (!m_round) {
                startRound(*call);
            }
        }
    }
    m_waiting.insert(m_waiting.begin(), later.begin(), later.end());
}

void CompanionCalendarStore::startRound(const Call &call) {
    m_isCurrent = true; // until something changes
    m_age.start();
    m_round = std::make_shared<Round>();
    m_round->from = call.from;
    m_round->to = call.to + readAhead;
    m_round->runs.push_back(run({u"list"_s}, [this](const ChildResult &result) {
        if (const auto list = listIn(result)) {
            m_round->reading = CalendarReading(*list, m_last->reading);
            watchFolders(*list);
        } else {
            m_round->reading = m_last->reading;
            m_round->reading.isComplete = false;
            finishRound();
        }
    }));
}

/// Call it before reading the calendars, so that no change in between is missed.
void CompanionCalendarStore::watchFolders(const CalendarList &list) {
    const auto watch = [this, list] {
        for (auto [watched, folders] : {std::pair(&m_watch, &list.folders),
                                        std::pair(&m_serviceWatch, &list.serviceFolders)}) {
            watched->beginRound();
            for (const QString &folder : *folders) {
                watched->add(QFile::encodeName(folder).toStdString());
            }
            watched->endRound();
        }
        return list.calendars;
    };
    m_workers.run(watch, [this, round = std::weak_ptr(m_round)](const auto &calendars) {
        if (!round.expired()) {
            readCalendars(calendars);
        }
    });
}

void CompanionCalendarStore::readCalendars(const QList<FoundCalendar> &calendars) {
    m_round->open = calendars.size();
    for (const FoundCalendar &calendar : calendars) {
        const auto take = [this, source = calendar.source](const ChildResult &result) {
            m_round->reading.take(source, result.output, result.status == 0);
            if (--m_round->open == 0) {
                finishRound();
            }
        };
        m_round->runs.push_back(run(
            {u"events"_s, secondsOf(m_round->from), secondsOf(m_round->to + 1s), calendar.source},
            take));
    }
    if (calendars.isEmpty()) {
        finishRound();
    }
}

void CompanionCalendarStore::finishRound() {
    // A calendar that was only slow to start answers next time; one that fails again is left alone.
    m_isStale = !m_round->reading.isComplete && m_last->reading.isComplete;
    m_last = std::exchange(m_round, nullptr);
    const bool isCurrent = std::exchange(m_isCurrent, true); // current enough for the pending calls
    answerWaiting();
    if (!m_round) {
        m_isCurrent = isCurrent;
    }
    if (!isCurrent) {
        Q_EMIT changed();
    }
}

void CompanionCalendarStore::consentChanged() {
    m_round.reset();
    m_last = std::make_shared<Round>();
    m_isCurrent = false;
    answerWaiting();
    Q_EMIT changed();
}

} // namespace perchly
