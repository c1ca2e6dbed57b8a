#include "QtClock.h"

#include "WallClockTask.h"

#include <QDateTime>
#include <QTimer>

#include <algorithm>

namespace perchly {

using namespace std::chrono_literals;
using std::chrono::milliseconds;

namespace {

class TimerTask : public ScheduledTask {
public:
    TimerTask(milliseconds interval, bool singleShot, Clock::Action action) {
        m_timer.setInterval(std::clamp(interval, singleShot ? 0ms : 1ms, milliseconds(24h * 24)));
        m_timer.setSingleShot(singleShot);
        // A coarse timer may be early, and people see a delay that is.
        m_timer.setTimerType(interval <= 10s ? Qt::PreciseTimer : Qt::CoarseTimer);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [action = std::move(action)] {
            // The action may destroy the task and with it this closure.
            const auto running = action;
            running();
        });
        m_timer.start();
    }

private:
    QTimer m_timer;
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

Task QtClock::after(milliseconds delay, Action action) {
    return std::make_unique<TimerTask>(delay, true, std::move(action));
}

Task QtClock::every(milliseconds period, Action action) {
    return std::make_unique<TimerTask>(period, false, std::move(action));
}

Task QtClock::at(TimePoint moment, Action action) {
    auto task = std::make_unique<WallClockTask>(moment, action);
    if (task->isScheduled()) {
        return task;
    }
    // Early is allowed and late is not: without a timer of the system's own, look every minute.
    const auto left = std::chrono::ceil<milliseconds>(moment - now());
    return after(std::min<milliseconds>(left, 1min), std::move(action));
}

} // namespace perchly
