#include "Battery.h"

#include <QPointer>

#include <algorithm>
#include <utility>

namespace perchly {

namespace {

bool isUsable(const PowerSource &source) {
    return source.kind == PowerSource::Kind::InternalBattery && source.currentCapacity &&
           source.maxCapacity.value_or(0) >= 1;
}

QString lineOf(const PowerSources::Reading &reading) {
    if (!reading) {
        return Battery::tr("Battery unavailable");
    }
    const auto battery = std::ranges::find_if(*reading, isUsable);
    if (battery == reading->cend()) {
        return Battery::tr("No internal battery");
    }
    const qint64 percent = qint64(*battery->currentCapacity) * 100 / *battery->maxCapacity;
    return Battery::tr("%1% · %2")
        .arg(QString::number(percent), battery->isCharging  ? Battery::tr("Charging")
                                       : battery->isOnMains ? Battery::tr("Plugged in")
                                                            : Battery::tr("On battery"));
}

} // namespace

Battery::Battery(PowerSources &power, QObject *parent)
    : QObject(parent)
    , m_power(power)
    , m_line(tr("Checking battery…")) {
    refresh();
}

void Battery::refresh() {
    m_power.read([guard = QPointer(this)](const PowerSources::Reading &reading) {
        if (guard) {
            guard->show(reading);
        }
    });
}

void Battery::show(const PowerSources::Reading &reading) {
    const QString line = lineOf(reading);
    if (std::exchange(m_line, line) != line) {
        Q_EMIT lineChanged();
    }
}

} // namespace perchly
