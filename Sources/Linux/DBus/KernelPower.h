#pragma once

#include "PowerSources.h"
#include "Workers.h"

#include <QString>

namespace perchly {

/// The machine's batteries, as one, from the kernel's folder of power supplies. It is read in the
/// background, since the firmware takes its time. Batteries of devices such as mice do not count.
class KernelPower : public PowerSources {
public:
    explicit KernelPower(QString folder = QStringLiteral("/sys/class/power_supply"));

    void read(Completion completion) override;

private:
    QString m_folder;
    Workers m_workers{1};
};

} // namespace perchly
