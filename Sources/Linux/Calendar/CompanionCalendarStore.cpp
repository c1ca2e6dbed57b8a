#include "CompanionCalendarStore.h"

#include <QFile>
#include <QTimeZone>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr auto timeLimit = 6s; // more than the companion takes before it ends itself
constexpr qsizetype mostOutput = qsizetype(64) << 20;
constexpr auto longestAge = 5min;
constexpr auto longestServiceAge = 15min; // where nobody else asks, asking makes it download
constexpr auto longestStaleAge = 1min;
constexpr auto ownDoing = 15s; // what follows a reading so soon
constexpr auto further = 24h;  // read ahead, so that time may go on for a while

QString secondsOf(Clock::TimePoint moment, std::chrono::seconds more = 0s) {
    const auto seconds = std::chrono::floor<std::chrono::seconds>(moment) + more;
    return QString::number(seconds.time_since_epoch().count());
}

} // namespace

/// A question to the person, from looking for calendars to the answer. Each step replaces the one
/// before it; without the request, none goes on.
class CompanionCalendarStore::Request : public ScheduledTask {
public:
    Request(CompanionCalendarStore &store, AccessCompletion completion)
        : m_store(store)
        , m_completion(std::move(completion)) {
        if (!store.m_ask || store.m_program.isEmpty()) {
            const QString why = store.m_ask
                                    ? QStringLiteral("The calendar reader is not installed.")
                                    : QStringLiteral("There is no display to ask you on.");
            QMetaObject::invokeMethod(
                &m_later, [this, why] { finish(why); }, Qt::QueuedConnection);
        } else {
            m_step =
                store.m_runs.run(store.m_program, {QStringLiteral("list")},
                                 {.time = timeLimit, .mostOutput = mostOutput}, OnStop::EndChild,
                                 [this](const ChildResult &result) { ask(result); });
        }
    }

private:
    void ask(const ChildResult &result) {
        const auto found = CalendarReading::parse(result.output);
        if (result.status != 0 || !found.finished) {
            finish(QStringLiteral("The calendars could not be looked for."));
            return;
        }
        m_step = m_store.m_ask(found.calendars, m_store.access(),
                               [this](std::optional<bool> allowed) { remember(allowed); });
    }

    void remember(std::optional<bool> allowed) {
        QString error;
        if (allowed) {
            error = m_store.m_consent.remember(*allowed ? CalendarAccess::Granted
                                                        : CalendarAccess::Denied);
        }
        finish(error.isEmpty() ? QString()
                               : QStringLiteral("Your answer could not be kept: %1.").arg(error));
    }

    void finish(const QString &error) {
        const auto completion = std::move(m_completion); // outlives the task that it may destroy
        completion({m_store.access(), error});
    }

    CompanionCalendarStore &m_store;
    AccessCompletion m_completion;
    QObject m_later;
    Task m_step;
};

struct CompanionCalendarStore::CallTask : ScheduledTask {
    explicit CallTask(std::shared_ptr<Call> held)
        : call(std::move(held)) {}
    std::shared_ptr<Call> call;
};

CompanionCalendarStore::CompanionCalendarStore(QString program, const QString &consentFile, Ask ask)
    : m_program(std::move(program))
    , m_ask(std::move(ask))
    , m_runs(2) // a reading, and a look for what there is
    , m_consent(consentFile, [this] { consentChanged(); })
    , m_watch([this] { filesChanged(); }, ".ics")
    , m_serviceWatch([this] { serviceChanged(); }, "") {
    m_pool.setMaxThreadCount(1);
    m_pool.setExpiryTimeout(1000);
}

Task CompanionCalendarStore::requestAccess(AccessCompletion completion) {
    return std::make_unique<Request>(*this, std::move(completion));
}

Task CompanionCalendarStore::events(Clock::TimePoint from, Clock::TimePoint to,
                                    EventsCompletion completion) {
    auto call = std::make_shared<Call>(Call{{from, to}, std::move(completion)});
    m_waiting.push_back(call);
    QMetaObject::invokeMethod(this, &CompanionCalendarStore::answerWaiting, Qt::QueuedConnection);
    return std::make_unique<CallTask>(std::move(call));
}

bool CompanionCalendarStore::isKnown(const Window &window) const {
    const bool isComplete = m_last.hasService() && !m_last.lacksOfService();
    const std::chrono::milliseconds age = m_stale      ? longestStaleAge
                                          : isComplete ? longestServiceAge
                                                       : longestAge;
    return access() != CalendarAccess::Granted || m_program.isEmpty() ||
           (m_current && m_known.holds(window) && !m_age.hasExpired(age.count()) &&
            m_zone == QTimeZone::systemTimeZoneId());
}

void CompanionCalendarStore::answerWaiting() {
    std::vector<std::weak_ptr<Call>> later;
    for (const auto &waiting : std::exchange(m_waiting, {})) {
        const std::shared_ptr<Call> call = waiting.lock();
        if (call && isKnown(call->window)) {
            const bool granted = access() == CalendarAccess::Granted;
            call->completion(granted ? m_last.eventsBetween(call->window.from, call->window.to)
                                     : QList<CalendarEvent>());
        } else if (call) {
            later.push_back(waiting);
            if (!m_reading) {
                read({call->window.from, call->window.to + further});
            }
        }
    }
    m_waiting.insert(m_waiting.begin(), later.begin(), later.end());
}

void CompanionCalendarStore::read(const Window &window) {
    m_reading = true;
    m_current = true; // until something changes
    m_zone = QTimeZone::systemTimeZoneId();
    m_age.start();
    m_run = m_runs.run(m_program,
                       {QStringLiteral("events"), secondsOf(window.from), secondsOf(window.to, 1s)},
                       {.time = timeLimit, .mostOutput = mostOutput}, OnStop::EndChild,
                       [this, window](const ChildResult &result) { takeApart(result, window); });
}

void CompanionCalendarStore::takeApart(const ChildResult &result, const Window &window) {
    m_pool.start([this, result, window, earlier = m_last, generation = m_generation] {
        auto reading = CalendarReading::parse(result.output);
        const bool ended = result.status == 0 && reading.finished;
        // Once, what is whole is better than what is new: the machine may have been busy.
        const bool lacks = ended && reading.cutShort && earlier.finished && !earlier.cutShort;
        const bool failed = !ended || lacks;
        if (failed) {
            reading = earlier;
            reading.cutShort = reading.cutShort || lacks;
        } else {
            reading.keepFrom(earlier);
            watchFolders(reading);
        }
        QMetaObject::invokeMethod(
            this,
            [this, reading = std::move(reading), failed, window, generation] {
                if (generation == m_generation) {
                    apply(reading, failed, window);
                }
            },
            Qt::QueuedConnection);
    });
}

void CompanionCalendarStore::apply(const CalendarReading &reading, bool failed,
                                   const Window &window) {
    m_reading = false;
    // What takes long to start is there the next time; what fails again is left alone.
    m_stale = failed || (reading.cutShort && !m_last.cutShort) ||
              (reading.lacksOfService() && !m_last.lacksOfService());
    m_last = reading;
    m_known = window;
    // A folder was not watched while it was read for the first time.
    const bool watched = m_watched == reading.folders;
    const bool current = m_current && watched;
    m_watched = reading.folders;
    m_current = true; // enough for those who waited for it
    answerWaiting();
    if (!m_reading) {
        m_current = current;
    }
    if (!current) {
        Q_EMIT changed();
    }
}

void CompanionCalendarStore::watchFolders(const CalendarReading &reading) {
    const auto watch = [](FolderWatch &folderWatch, const QStringList &folders) {
        folderWatch.beginRound();
        for (const QString &folder : folders) {
            folderWatch.add(QFile::encodeName(folder).toStdString());
        }
        folderWatch.endRound();
    };
    watch(m_watch, reading.folders);
    watch(m_serviceWatch, reading.serviceFolders);
}

void CompanionCalendarStore::filesChanged() {
    m_current = false;
    if (access() == CalendarAccess::Granted) {
        Q_EMIT changed();
    }
}

void CompanionCalendarStore::serviceChanged() {
    m_stale = m_stale || (!m_reading && m_age.hasExpired(ownDoing / 1ms));
}

void CompanionCalendarStore::consentChanged() {
    ++m_generation;
    m_run.reset();
    m_reading = false;
    m_current = false;
    m_last = {};
    answerWaiting();
    Q_EMIT changed();
}

} // namespace perchly
