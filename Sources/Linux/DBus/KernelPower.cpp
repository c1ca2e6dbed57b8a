#include "KernelPower.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <limits>

namespace perchly {

namespace {

constexpr qint64 mostBytes = 64;

QByteArray readFact(const QDir &supply, const char *name) {
    QFile file(supply.filePath(QString::fromLatin1(name)));
    return file.open(QIODevice::ReadOnly) ? file.read(mostBytes).trimmed() : QByteArray();
}

std::optional<std::int32_t> readAmount(const QDir &supply, const char *name) {
    bool isNumber = false;
    const qlonglong value = readFact(supply, name).toLongLong(&isNumber);
    const bool canBe = isNumber && value >= 0 && value <= std::numeric_limits<std::int32_t>::max();
    return canBe ? std::optional(std::int32_t(value)) : std::nullopt;
}

bool isOnline(const QDir &supply) {
    return readAmount(supply, "online").value_or(0) > 0;
}

PowerSource readBattery(const QDir &supply) {
    PowerSource battery{.kind = PowerSource::Kind::InternalBattery};
    const auto percent = readAmount(supply, "capacity");
    if (percent && *percent <= 100) {
        battery.currentCapacity = percent;
        battery.maxCapacity = 100;
    } else {
        // Watt hours or ampere hours, whichever the firmware counts in.
        const char *now = "energy_now";
        const char *full = "energy_full";
        if (!readAmount(supply, now)) {
            now = "charge_now";
            full = "charge_full";
        }
        battery.currentCapacity = readAmount(supply, now);
        battery.maxCapacity = readAmount(supply, full);
        if (battery.currentCapacity && battery.maxCapacity) {
            battery.currentCapacity = std::min(*battery.currentCapacity, *battery.maxCapacity);
        }
    }
    const QByteArray status = readFact(supply, "status");
    battery.isCharging = status == "Charging";
    battery.isOnMains = battery.isCharging || status == "Full" || status == "Not charging";
    return battery;
}

} // namespace

PowerSources::Reading readKernelPower(const QString &folder) {
    const QDir supplies(folder);
    if (!supplies.exists()) {
        return std::nullopt;
    }
    QList<PowerSource> sources;
    bool isOnMains = false;
    const QStringList names = supplies.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    for (const QString &name : names) {
        const QDir supply(supplies.filePath(name));
        const QByteArray type = readFact(supply, "type");
        if (type == "Battery") {
            const bool isHere = readFact(supply, "present") != "0";
            if (isHere && readFact(supply, "scope") != "Device") {
                sources.append(readBattery(supply));
            }
        } else {
            isOnMains = isOnMains || isOnline(supply);
            sources.append(PowerSource());
        }
    }
    for (PowerSource &source : sources) {
        source.isOnMains = source.isOnMains || isOnMains;
    }
    return sources;
}

} // namespace perchly
