#include "WallClockTask.h"

#include <sys/timerfd.h>
#include <unistd.h>

#include <algorithm>

namespace perchly {

using std::chrono::nanoseconds;
using std::chrono::seconds;

WallClockTask::WallClockTask(Clock::TimePoint moment, Clock::Action action)
    : m_action(std::move(action))
    , m_timer(::timerfd_create(CLOCK_REALTIME, TFD_NONBLOCK | TFD_CLOEXEC)) {
    // A moment of zero would switch the timer off; every moment before now is due at once.
    const nanoseconds due =
        std::max(std::chrono::ceil<nanoseconds>(moment.time_since_epoch()), nanoseconds(1));
    const seconds whole = std::chrono::floor<seconds>(due);
    itimerspec when = {};
    when.it_value.tv_sec = whole.count();
    when.it_value.tv_nsec = (due - whole).count();
    if (m_timer < 0 || ::timerfd_settime(m_timer, TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET,
                                         &when, nullptr) != 0) {
        return;
    }
    m_notifier.emplace(m_timer, QSocketNotifier::Read);
    QObject::connect(&*m_notifier, &QSocketNotifier::activated, &*m_notifier, [this] { fire(); });
}

WallClockTask::~WallClockTask() {
    m_notifier.reset();
    if (m_timer >= 0) {
        ::close(m_timer);
    }
}

void WallClockTask::fire() {
    // Readable means due, or cancelled since the clock was set: the action is told of both alike.
    m_notifier->setEnabled(false);
    const auto action = std::move(m_action); // which may destroy the task
    action();
}

} // namespace perchly
