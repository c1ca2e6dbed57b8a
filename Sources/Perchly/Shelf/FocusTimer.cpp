// The focus timer of the shelf model: a countdown to a deadline by the machine's uptime, so that
// late ticks cause no error, and the day's totals.

#include "AlertSound.h"
#include "PreferenceKeys.h"
#include "Preferences.h"
#include "ShelfModel.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace perchly {

using Seconds = std::chrono::seconds;

namespace {

constexpr int secondsPerMinute = 60;
constexpr std::chrono::milliseconds tickPeriod{1000};

int limitedToInt(qint64 value) {
    return int(std::clamp<qint64>(value, 0, std::numeric_limits<int>::max()));
}

double secondsSinceEpoch(Clock::TimePoint moment) {
    return std::chrono::duration<double>(moment.time_since_epoch()).count();
}

} // namespace

int ShelfModel::storedMinutes(const QString &key, int defaultMinutes) const {
    // A length that was stored by other means may be too large: its seconds must fit into an int.
    constexpr qint64 max = std::numeric_limits<int>::max() / secondsPerMinute;
    const qint64 stored = m_preferences.wholeNumber(key).value_or(defaultMinutes);
    return int(std::clamp<qint64>(stored, 1, max));
}

int ShelfModel::remainingSeconds(int withoutDeadline) const {
    if (!m_deadline) {
        return withoutDeadline;
    }
    return limitedToInt(std::chrono::ceil<Seconds>(*m_deadline - m_clock.uptime()).count());
}

void ShelfModel::setRunning(bool running) {
    publish(m_running, running, &ShelfModel::runningChanged);
    scheduleTick();
}

void ShelfModel::startCountdown(int minutes, const QString &activity) {
    publish(m_seconds, minutes * secondsPerMinute, &ShelfModel::secondsChanged);
    m_deadline = m_clock.uptime() + Seconds(m_seconds);
    setRunning(true);
    setActivity(activity);
}

void ShelfModel::focus() {
    m_isBreak = false;
    m_plannedMinutes = storedMinutes(keys::focusMinutes, keys::defaultFocusMinutes);
    startCountdown(m_plannedMinutes, tr("Focus session"));
}

void ShelfModel::startBreak() {
    endFocus();
    m_isBreak = true;
    startCountdown(storedMinutes(keys::breakMinutes, keys::defaultBreakMinutes), tr("Break"));
}

void ShelfModel::togglePause() {
    if (m_running) {
        publish(m_seconds, remainingSeconds(m_seconds), &ShelfModel::secondsChanged);
        m_deadline.reset();
        setRunning(false);
    } else if (m_seconds >= 1) {
        m_deadline = m_clock.uptime() + Seconds(m_seconds);
        setRunning(true);
    }
}

void ShelfModel::endFocus() {
    m_deadline.reset();
    setRunning(false);
    publish(m_seconds, 0, &ShelfModel::secondsChanged);
    setQuietFocus(false);
    setActivity(tr("Ready when you are"));
}

void ShelfModel::refreshDay() {
    const double today = secondsSinceEpoch(m_clock.startOfDay());
    if (m_preferences.number(keys::focusDay).value_or(0) != today) {
        m_preferences.setValues(
            {{keys::focusDay, today}, {keys::focusSessions, 0.0}, {keys::focusTotalMinutes, 0.0}});
    }
    const auto stored = [this](const QString &key) {
        return limitedToInt(m_preferences.wholeNumber(key).value_or(0));
    };
    publish(m_todaySessions, stored(keys::focusSessions), &ShelfModel::todaySessionsChanged);
    publish(m_todayMinutes, stored(keys::focusTotalMinutes), &ShelfModel::todayMinutesChanged);
}

/// Ticks every second while a countdown runs; otherwise wakes up only when the day changes.
void ShelfModel::scheduleTick() {
    m_ticker = m_running ? m_clock.every(tickPeriod, [this] { tick(); })
                         : m_clock.at(m_clock.startOfNextDay(), [this] {
                               tick();
                               scheduleTick();
                           });
}

void ShelfModel::tick() {
    refreshDay();
    if (!m_running) {
        return;
    }
    publish(m_seconds, remainingSeconds(0), &ShelfModel::secondsChanged);
    if (m_seconds > 0) {
        return;
    }
    if (!m_isBreak) {
        const auto sum = [](int a, int b) { return limitedToInt(qint64(a) + b); };
        publish(m_todaySessions, sum(m_todaySessions, 1), &ShelfModel::todaySessionsChanged);
        publish(m_todayMinutes, sum(m_todayMinutes, m_plannedMinutes),
                &ShelfModel::todayMinutesChanged);
        m_preferences.setValues({{keys::focusSessions, double(m_todaySessions)},
                                 {keys::focusTotalMinutes, double(m_todayMinutes)}});
    }
    setQuietFocus(false);
    m_deadline.reset();
    setRunning(false);
    setActivity(m_isBreak ? tr("Break complete") : tr("Focus complete"));
    m_alertSound.play();
    Q_EMIT countdownCompleted(m_isBreak);
}

} // namespace perchly
