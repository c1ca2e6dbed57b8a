// One line on the battery.

#include "Hosts.h"
#include "ShelfExtras.h"

#include <QPointer>

#include <algorithm>

namespace perchly {

namespace {

bool isUsable(const PowerSource &source) {
    return source.kind == PowerSource::Kind::InternalBattery && source.currentCapacity &&
           source.maxCapacity.value_or(0) >= 1;
}

QString stateOf(const PowerSource &battery) {
    if (battery.isCharging) {
        return QStringLiteral("Charging");
    }
    return battery.isOnMains ? QStringLiteral("Plugged in") : QStringLiteral("On battery");
}

QString lineOf(const PowerSources::Reading &reading) {
    if (!reading) {
        return QStringLiteral("Battery unavailable");
    }
    const auto battery = std::ranges::find_if(*reading, isUsable);
    if (battery == reading->cend()) {
        return QStringLiteral("No internal battery");
    }
    const qint64 percent = qint64(*battery->currentCapacity) * 100 / *battery->maxCapacity;
    return QStringLiteral("%1% · %2").arg(QString::number(percent), stateOf(*battery));
}

} // namespace

void ShelfExtras::refreshBattery() {
    m_hosts.power->read([guard = QPointer(this)](const PowerSources::Reading &reading) {
        if (guard) {
            guard->setBattery(lineOf(reading));
        }
    });
}

void ShelfExtras::setBattery(const QString &battery) {
    if (battery != m_battery) {
        m_battery = battery;
        Q_EMIT batteryChanged();
    }
}

} // namespace perchly
