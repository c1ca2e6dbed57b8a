#include "WallTime.h"

#include "TimeText.h"

#include <algorithm>

namespace perchly {

namespace {

constexpr int maxSleep = 10'000;
constexpr int minute = 60'000;

} // namespace

WallTime::WallTime(QObject *parent)
    : QObject(parent) {
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer); // a coarse timer may fire before the minute ends
    connect(&m_timer, &QTimer::timeout, this, &WallTime::refresh);
    refresh();
}

void WallTime::setRunning(bool running) {
    if (m_running == running) {
        return;
    }
    m_running = running;
    Q_EMIT runningChanged();
    if (running) {
        refresh();
    } else {
        m_timer.stop();
    }
}

void WallTime::refresh() {
    const QDateTime now = QDateTime::currentDateTime();
    const QLocale locale;
    const QString time = timeOfDay(now.time(), locale);
    const QString day = dayLine(now.date(), locale);
    if (time != m_time || day != m_day) {
        m_time = time;
        m_day = day;
        m_date = locale.toString(now.date(), QLocale::LongFormat);
        m_dayNumber = QString::number(now.date().day());
        m_month = monthLine(now.date(), locale);
        Q_EMIT changed();
    }
    if (m_running) {
        const int toNextMinute = minute - now.time().msecsSinceStartOfDay() % minute;
        m_timer.start(std::min(toNextMinute, maxSleep));
    }
}

} // namespace perchly
