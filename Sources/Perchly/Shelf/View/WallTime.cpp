#include "WallTime.h"

#include "CardText.h"

#include <algorithm>

namespace perchly {

namespace {

constexpr int longestSleep = 10'000;
constexpr int minute = 60'000;

} // namespace

WallTime::WallTime(QObject *parent)
    : QObject(parent) {
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer); // a coarse one may fire before the minute ends
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
    assign(m_time, CardText::timeOfDay(now.time(), locale), &WallTime::timeChanged);
    assign(m_day, CardText::dayLine(now.date(), locale), &WallTime::dayChanged);
    assign(m_dayNumber, QString::number(now.date().day()), &WallTime::dayNumberChanged);
    assign(m_month, CardText::monthLine(now.date(), locale), &WallTime::monthChanged);
    if (m_running) {
        const int toNextMinute = minute - now.time().msecsSinceStartOfDay() % minute;
        m_timer.start(std::min(toNextMinute, longestSleep));
    }
}

void WallTime::assign(QString &field, const QString &value, void (WallTime::*changed)()) {
    if (field != value) {
        field = value;
        Q_EMIT(this->*changed)();
    }
}

} // namespace perchly
