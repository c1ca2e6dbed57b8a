#include "BusPowerSources.h"

#include "KernelPower.h"

#include <systemd/sd-bus.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <string_view>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr const char *powerService = "org.freedesktop.UPower";
constexpr const char *daemonPath = "/org/freedesktop/UPower";
constexpr const char *devicePath = "/org/freedesktop/UPower/devices/DisplayDevice";
constexpr const char *deviceInterface = "org.freedesktop.UPower.Device";
constexpr const char *properties = "org.freedesktop.DBus.Properties";

constexpr auto betweenTries = 5s;

constexpr std::uint32_t typeBattery = 2;
enum State : std::uint32_t { Charging = 1, FullyCharged = 4, PendingCharge = 5 };

std::string changesOf(const char *path) {
    return std::string("type='signal',sender='org.freedesktop.UPower',"
                       "interface='org.freedesktop.DBus.Properties',member='PropertiesChanged',"
                       "path='") +
           path + '\'';
}

/// Takes the value that comes next, if it is of the type; passes over it otherwise.
template <typename Value>
void take(sd_bus_message *message, const char *type, std::optional<Value> &value) {
    const char *contents = nullptr;
    if (sd_bus_message_peek_type(message, nullptr, &contents) > 0 && contents != nullptr &&
        std::strcmp(contents, type) == 0) {
        Value read{};
        if (sd_bus_message_read(message, "v", type, &read) > 0) {
            value = read;
        }
    } else {
        sd_bus_message_skip(message, "v");
    }
}

/// Calls the function with each name, which takes the value or passes over it.
template <typename Function>
void forEachProperty(sd_bus_message *message, Function function) {
    if (sd_bus_message_enter_container(message, SD_BUS_TYPE_ARRAY, "{sv}") <= 0) {
        return;
    }
    while (sd_bus_message_enter_container(message, SD_BUS_TYPE_DICT_ENTRY, "sv") > 0) {
        const char *name = nullptr;
        if (sd_bus_message_read_basic(message, SD_BUS_TYPE_STRING, &name) <= 0) {
            return;
        }
        function(std::string_view(name));
        sd_bus_message_exit_container(message);
    }
}

} // namespace

BusPowerSources::BusPowerSources(QString kernelFolder)
    : m_kernelFolder(std::move(kernelFolder)) {
    m_flurry.setSingleShot(true);
    m_flurry.setInterval(50ms);
    connect(&m_flurry, &QTimer::timeout, this, &BusPowerSources::ask);
    m_pool.setMaxThreadCount(1);
    m_pool.setExpiryTimeout(1000);
    connectToBus();
}

BusPowerSources::~BusPowerSources() = default;

void BusPowerSources::read(Completion completion) {
    if (!m_bus && m_nextTry.hasExpired()) {
        connectToBus(); // it may be there by now
    }
    if (!m_facts.battery) {
        readKernel(std::move(completion));
        return;
    }
    PowerSource battery = *m_facts.battery;
    battery.isOnMains = m_facts.isOnBattery ? !*m_facts.isOnBattery : battery.isOnMains;
    QMetaObject::invokeMethod(
        this,
        [battery, completion = std::move(completion)] { completion(QList<PowerSource>{battery}); },
        Qt::QueuedConnection);
}

void BusPowerSources::readKernel(Completion completion) {
    m_pool.start([this, folder = m_kernelFolder, completion = std::move(completion)]() mutable {
        const Reading reading = readKernelPower(folder);
        QMetaObject::invokeMethod(
            this, [reading, completion = std::move(completion)] { completion(reading); },
            Qt::QueuedConnection);
    });
}

void BusPowerSources::connectToBus() {
    m_nextTry.setRemainingTime(betweenTries); // a bus may take a connection and drop it at once
    m_bus = std::make_unique<BusLoop>();
    if (!m_bus->open(BusLoop::Bus::System)) {
        m_bus.reset();
        return;
    }
    connect(m_bus.get(), &BusLoop::lost, this, &BusPowerSources::onBusLost, Qt::QueuedConnection);
    m_owner = m_bus->match("type='signal',sender='org.freedesktop.DBus',"
                           "path='/org/freedesktop/DBus',interface='org.freedesktop.DBus',"
                           "member='NameOwnerChanged',arg0='org.freedesktop.UPower'",
                           [this](sd_bus_message *message) { onOwnerChanged(message); });
    const auto onChange = [this](sd_bus_message *) {
        if (!m_flurry.isActive()) {
            m_flurry.start();
        }
    };
    m_deviceChanges = m_bus->match(changesOf(devicePath).c_str(), onChange);
    m_daemonChanges = m_bus->match(changesOf(daemonPath).c_str(), onChange);
    ask();
}

void BusPowerSources::onBusLost() {
    m_flurry.stop();
    for (BusSlot *slot : {&m_owner, &m_deviceChanges, &m_daemonChanges, &m_device, &m_daemon}) {
        slot->reset();
    }
    m_bus.reset();
    m_facts = {};
    Q_EMIT changed();
}

void BusPowerSources::onOwnerChanged(sd_bus_message *message) {
    const char *name = nullptr;
    const char *before = nullptr;
    const char *after = nullptr;
    if (sd_bus_message_read(message, "sss", &name, &before, &after) < 0) {
        return;
    }
    m_facts = {};
    if (after[0] != '\0') {
        ask();
    } else {
        Q_EMIT changed();
    }
}

void BusPowerSources::ask() {
    if (!m_bus) {
        return;
    }
    m_device = m_bus->call(powerService, devicePath, properties, "GetAll", deviceInterface,
                           [this](sd_bus_message *reply) { onDevice(reply); });
    m_daemon = m_bus->call(powerService, daemonPath, properties, "GetAll", powerService,
                           [this](sd_bus_message *reply) { onDaemon(reply); });
}

void BusPowerSources::onDevice(sd_bus_message *reply) {
    std::optional<std::uint32_t> type;
    std::optional<std::uint32_t> state;
    std::optional<int> isPresent;
    std::optional<double> percentage;
    forEachProperty(reply, [&](std::string_view name) {
        if (name == "Type") {
            take(reply, "u", type);
        } else if (name == "State") {
            take(reply, "u", state);
        } else if (name == "IsPresent") {
            take(reply, "b", isPresent);
        } else if (name == "Percentage") {
            take(reply, "d", percentage);
        } else {
            sd_bus_message_skip(reply, "v");
        }
    });
    PowerSource source;
    if (type == typeBattery && isPresent.value_or(0) != 0) {
        source.kind = PowerSource::Kind::InternalBattery;
        if (percentage && std::isfinite(*percentage) && *percentage >= 0) {
            source.currentCapacity = std::int32_t(std::lround(std::min(*percentage, 100.0)));
            source.maxCapacity = 100;
        }
        source.isCharging = state == State::Charging;
        source.isOnMains =
            source.isCharging || state == State::FullyCharged || state == State::PendingCharge;
    }
    if (std::exchange(m_facts.battery, source) != source) {
        Q_EMIT changed();
    }
}

void BusPowerSources::onDaemon(sd_bus_message *reply) {
    std::optional<int> isOnBattery;
    forEachProperty(reply, [&](std::string_view name) {
        if (name == "OnBattery") {
            take(reply, "b", isOnBattery);
        } else {
            sd_bus_message_skip(reply, "v");
        }
    });
    const auto value = isOnBattery ? std::optional(*isOnBattery != 0) : std::nullopt;
    if (std::exchange(m_facts.isOnBattery, value) != value) {
        Q_EMIT changed();
    }
}

} // namespace perchly
