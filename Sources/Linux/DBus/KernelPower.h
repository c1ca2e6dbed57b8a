#pragma once

#include "PowerSources.h"
#include "Workers.h"

#include <QString>

namespace perchly {

/// The machine's batteries, combined into one, from the kernel's power supply folder. Read in the
/// background, since the firmware may be slow. Ignores batteries of devices such as mice.
class KernelPower : public PowerSources {
public:
    explicit KernelPower(QString folder = QStringLiteral("/sys/class/power_supply"));

    void read(Completion completion) override;

private:
    QString m_folder;
    Workers m_workers{1};
};

} // namespace perchly
