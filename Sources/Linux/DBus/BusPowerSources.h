#pragma once

#include "BusLoop.h"
#include "PowerSources.h"

#include <QDeadlineTimer>
#include <QString>
#include <QThreadPool>
#include <QTimer>

#include <memory>

namespace perchly {

/// The battery as the desktop's power service (UPower) describes it: all the machine's batteries
/// as one. The service tells of changes, so that a reading is only looked up. While the service
/// does not run, or there is no system bus, the kernel is asked at each reading, in the background.
class BusPowerSources : public PowerSources {
    Q_OBJECT
public:
    explicit BusPowerSources(QString kernelFolder = QStringLiteral("/sys/class/power_supply"));
    ~BusPowerSources() override;

    void read(Completion completion) override;

private:
    struct Facts {
        std::optional<PowerSource> battery; ///< nothing until the service has described it
        std::optional<bool> isOnBattery;
    };

    void connectToBus();
    void onBusLost();
    void onOwnerChanged(sd_bus_message *message);
    void ask();
    void onDevice(sd_bus_message *reply);
    void onDaemon(sd_bus_message *reply);
    void readKernel(Completion completion);

    QString m_kernelFolder;
    std::unique_ptr<BusLoop> m_bus;
    QDeadlineTimer m_nextTry;
    BusSlot m_owner;
    BusSlot m_deviceChanges;
    BusSlot m_daemonChanges;
    BusSlot m_device;
    BusSlot m_daemon;
    QTimer m_flurry; ///< several signals come for one change
    Facts m_facts;
    QThreadPool m_pool; ///< destroyed first: it waits for the threads
};

} // namespace perchly
