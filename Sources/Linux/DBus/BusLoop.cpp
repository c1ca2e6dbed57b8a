#include "BusLoop.h"

#include <systemd/sd-bus.h>

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <poll.h>

namespace perchly {

namespace {

int onMessage(sd_bus_message *message, void *data, sd_bus_error *) {
    if (sd_bus_message_is_method_error(message, nullptr) <= 0) {
        (*static_cast<BusLoop::Handler *>(data))(message);
    }
    return 0;
}

void destroyHandler(void *data) {
    delete static_cast<BusLoop::Handler *>(data);
}

/// Hands the handler over to the slot, or away when there is none.
BusSlot owned(sd_bus_slot *slot, std::unique_ptr<BusLoop::Handler> handler) {
    if (slot != nullptr) {
        sd_bus_slot_set_destroy_callback(slot, destroyHandler);
        static_cast<void>(handler.release());
    }
    return BusSlot(slot);
}

std::int64_t millisecondsUntil(std::uint64_t moment) {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    const std::int64_t microseconds =
        std::int64_t(moment) - (std::int64_t(now.tv_sec) * 1'000'000 + now.tv_nsec / 1000);
    return std::clamp(microseconds / 1000 + 1, std::int64_t(0), std::int64_t(60'000));
}

} // namespace

void BusRelease::operator()(sd_bus *bus) const {
    sd_bus_close(bus);
    sd_bus_unref(bus);
}

void BusRelease::operator()(sd_bus_slot *slot) const {
    sd_bus_slot_unref(slot);
}

BusLoop::BusLoop(QObject *parent)
    : QObject(parent) {
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &BusLoop::process);
}

BusLoop::~BusLoop() = default;

bool BusLoop::open(Bus which) {
    sd_bus *bus = nullptr;
    const int opened = which == Bus::Session ? sd_bus_open_user(&bus) : sd_bus_open_system(&bus);
    if (opened < 0) {
        return false;
    }
    m_bus.reset(bus);
    const int descriptor = sd_bus_get_fd(bus);
    m_readable = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
    m_writable = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Write);
    connect(m_readable.get(), &QSocketNotifier::activated, this, &BusLoop::process);
    connect(m_writable.get(), &QSocketNotifier::activated, this, &BusLoop::process);
    arm();
    return true;
}

BusSlot BusLoop::match(const char *rule, const Handler &handler) {
    auto data = std::make_unique<Handler>(handler);
    sd_bus_slot *slot = nullptr;
    if (m_bus) {
        sd_bus_add_match_async(m_bus.get(), &slot, rule, onMessage, nullptr, data.get());
        arm();
    }
    return owned(slot, std::move(data));
}

BusSlot BusLoop::call(const char *destination, const char *path, const char *interface,
                      const char *method, const char *argument, const Handler &handler,
                      std::chrono::microseconds limit) {
    sd_bus_message *message = nullptr;
    sd_bus_slot *slot = nullptr;
    auto data = std::make_unique<Handler>(handler);
    if (m_bus && sd_bus_message_new_method_call(m_bus.get(), &message, destination, path, interface,
                                                method) >= 0) {
        sd_bus_message_set_auto_start(message, 0);
        if (argument == nullptr || sd_bus_message_append(message, "s", argument) >= 0) {
            sd_bus_call_async(m_bus.get(), &slot, message, onMessage, data.get(),
                              std::uint64_t(limit.count()));
        }
        sd_bus_message_unref(message);
        arm();
    }
    return owned(slot, std::move(data));
}

void BusLoop::process() {
    int done = 0;
    for (int count = 0; count < 64; ++count) { // then let the rest of the program have its turn
        done = sd_bus_process(m_bus.get(), nullptr);
        if (done <= 0) {
            break;
        }
    }
    if (done < 0 || sd_bus_is_open(m_bus.get()) <= 0) {
        m_timer.stop();
        m_readable->setEnabled(false);
        m_writable->setEnabled(false);
        Q_EMIT lost();
        return;
    }
    arm();
    if (done > 0) {
        m_timer.start(0);
    }
}

void BusLoop::arm() {
    const int events = sd_bus_get_events(m_bus.get());
    m_readable->setEnabled(events >= 0 && (events & POLLIN) != 0);
    m_writable->setEnabled(events >= 0 && (events & POLLOUT) != 0);
    std::uint64_t moment = 0;
    if (sd_bus_get_timeout(m_bus.get(), &moment) > 0 && moment != UINT64_MAX) {
        m_timer.start(int(millisecondsUntil(moment)));
    } else {
        m_timer.stop();
    }
}

} // namespace perchly
