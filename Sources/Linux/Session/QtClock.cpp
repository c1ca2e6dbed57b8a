#include "QtClock.h"

#include <QDateTime>
#include <QSocketNotifier>
#include <QTimer>

#include <algorithm>
#include <ctime>
#include <sys/inotify.h>
#include <sys/timerfd.h>
#include <unistd.h>

namespace perchly {

using namespace std::chrono_literals;
using std::chrono::milliseconds;
using std::chrono::nanoseconds;
using std::chrono::seconds;

namespace {

class TimerTask : public ScheduledTask {
public:
    TimerTask(milliseconds interval, bool singleShot, Clock::Action action) {
        m_timer.setInterval(std::clamp(interval, singleShot ? 0ms : 1ms, milliseconds(24h * 24)));
        m_timer.setSingleShot(singleShot);
        // A coarse timer may fire early, which users would notice in short delays.
        m_timer.setTimerType(interval <= 10s ? Qt::PreciseTimer : Qt::CoarseTimer);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [action = std::move(action)] {
            // it may destroy this task and with it the closure
            const auto running = action;
            running();
        });
        m_timer.start();
    }

private:
    QTimer m_timer;
};

/// Runs an action once, from the event loop, when the wall clock reaches a moment, or earlier if
/// the clock is set, the machine wakes up or the time zone changes. It costs two file descriptors
/// and no wake-ups.
class WallClockTask : public ScheduledTask {
public:
    WallClockTask(Clock::TimePoint moment, const QByteArray &zoneFile, Clock::Action action)
        : m_action(std::move(action)) {
        // Zero would disarm the timer, so a moment in the past gets the smallest positive value.
        const nanoseconds due =
            std::max(std::chrono::ceil<nanoseconds>(moment.time_since_epoch()), nanoseconds(1));
        const seconds whole = std::chrono::floor<seconds>(due);
        itimerspec when = {};
        when.it_value.tv_sec = whole.count();
        when.it_value.tv_nsec = (due - whole).count();
        ::timerfd_settime(m_timer, TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &when, nullptr);
        // Another zone replaces the link.
        ::inotify_add_watch(m_zone, zoneFile.constData(), IN_DONT_FOLLOW | IN_ATTRIB | IN_MODIFY);
        if (m_zone >= 0) { // the user's inotify instances may be used up
            m_zoneNotifier.setSocket(m_zone);
            m_zoneNotifier.setEnabled(true);
        }
        // The timer is readable when due or when the clock was set.
        for (QSocketNotifier *notifier : {&m_timerNotifier, &m_zoneNotifier}) {
            QObject::connect(notifier, &QSocketNotifier::activated, notifier, [this] { run(); });
        }
    }
    ~WallClockTask() override {
        stop();
        ::close(m_timer);
        ::close(m_zone);
    }

private:
    void stop() {
        m_timerNotifier.setEnabled(false);
        m_zoneNotifier.setEnabled(false);
    }
    void run() {
        stop();
        const auto running = std::move(m_action); // it may destroy this task
        running();
    }

    Clock::Action m_action;
    const int m_timer = ::timerfd_create(CLOCK_REALTIME, TFD_NONBLOCK | TFD_CLOEXEC);
    const int m_zone = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    QSocketNotifier m_timerNotifier{m_timer, QSocketNotifier::Read};
    QSocketNotifier m_zoneNotifier{QSocketNotifier::Read};
};

Clock::TimePoint startOfDay(Clock::TimePoint moment, qint64 daysLater) {
    const auto now = std::chrono::floor<milliseconds>(moment.time_since_epoch()).count();
    const QDate day = QDateTime::fromMSecsSinceEpoch(now).date().addDays(daysLater);
    return Clock::TimePoint(milliseconds(day.startOfDay().toMSecsSinceEpoch()));
}

} // namespace

Clock::TimePoint QtClock::now() const {
    return std::chrono::system_clock::now();
}

Clock::TimePoint QtClock::startOfDay() const {
    return perchly::startOfDay(now(), 0);
}

Clock::TimePoint QtClock::startOfNextDay() const {
    return perchly::startOfDay(now(), 1);
}

nanoseconds QtClock::uptime() const {
    timespec time = {};
    ::clock_gettime(CLOCK_BOOTTIME, &time);
    return seconds(time.tv_sec) + nanoseconds(time.tv_nsec);
}

Task QtClock::after(milliseconds delay, Action action) {
    return std::make_unique<TimerTask>(delay, true, std::move(action));
}

Task QtClock::every(milliseconds period, Action action) {
    return std::make_unique<TimerTask>(period, false, std::move(action));
}

Task QtClock::at(TimePoint moment, Action action) {
    return std::make_unique<WallClockTask>(moment, m_zoneFile, std::move(action));
}

} // namespace perchly
