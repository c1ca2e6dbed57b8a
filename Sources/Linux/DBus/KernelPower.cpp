#include "KernelPower.h"

#include <QDir>
#include <QFile>

#include <algorithm>

namespace perchly {

namespace {

constexpr qint64 maxBytes = 64;

QByteArray readFact(const QDir &supply, const char *name) {
    QFile file(supply.filePath(QString::fromLatin1(name)));
    return file.open(QIODevice::ReadOnly) ? file.read(maxBytes).trimmed() : QByteArray();
}

/// The battery's capacity, in the unit that all batteries of the machine use.
double capacityOf(const QDir &supply) {
    const double energy = readFact(supply, "energy_full").toDouble();
    return std::max(energy > 0 ? energy : readFact(supply, "charge_full").toDouble(), 1.0);
}

PowerSources::Reading readFolder(const QString &folder) {
    const QDir supplies(folder);
    if (!supplies.exists()) {
        return std::nullopt;
    }
    bool isOnline = false;
    double percents = 0; // weighted by capacity
    double capacities = 0;
    QByteArrayList statuses;
    for (const QString &name : supplies.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QDir supply(supplies.filePath(name));
        if (readFact(supply, "type") != "Battery") {
            isOnline = isOnline || readFact(supply, "online").toInt() > 0;
            continue;
        }
        bool isNumber = false;
        const int percent = readFact(supply, "capacity").toInt(&isNumber);
        if (isNumber && readFact(supply, "scope") != "Device" &&
            readFact(supply, "present") != "0") {
            const double capacity = capacityOf(supply);
            percents += std::clamp(percent, 0, 100) * capacity;
            capacities += capacity;
            statuses.append(readFact(supply, "status"));
        }
    }
    if (statuses.isEmpty()) {
        return QList<PowerSource>();
    }
    return QList{PowerSource{.kind = PowerSource::Kind::InternalBattery,
                             .currentCapacity = std::int32_t(percents / capacities),
                             .maxCapacity = 100,
                             .isCharging = statuses.contains("Charging"),
                             .isOnMains = isOnline || (!statuses.contains("Discharging") &&
                                                       !statuses.contains("Unknown"))}};
}

} // namespace

KernelPower::KernelPower(QString folder)
    : m_folder(std::move(folder)) {}

void KernelPower::read(Completion completion) {
    m_workers.run([this] { return readFolder(m_folder); }, std::move(completion));
}

} // namespace perchly
