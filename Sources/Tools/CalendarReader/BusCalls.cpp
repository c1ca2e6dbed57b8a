#include "BusCalls.h"

#include <systemd/sd-bus.h>

namespace perchly {

void BusCalls::Release::operator()(sd_bus *bus) const {
    sd_bus_close_unref(bus);
}

bool BusCalls::open() {
    sd_bus *bus = nullptr;
    if (sd_bus_open_user(&bus) < 0) {
        return false;
    }
    m_bus.reset(bus);
    return true;
}

void BusCalls::call(const BusMethod &method, const char *argument, Answer take) {
    const auto time = left().count();
    sd_bus_message *created = nullptr;
    if (time <= 0 ||
        sd_bus_message_new_method_call(m_bus.get(), &created, method.service.c_str(),
                                       method.path.c_str(), method.interface, method.name) < 0) {
        return;
    }
    const std::unique_ptr<sd_bus_message, decltype(&sd_bus_message_unref)> message(
        created, sd_bus_message_unref);
    const auto answered = [](sd_bus_message *answer, void *data, sd_bus_error *) {
        const auto *call = static_cast<Call *>(data);
        --call->calls->m_open;
        if (sd_bus_message_is_method_error(answer, nullptr) <= 0) {
            call->take(answer);
        }
        return 1;
    };
    m_calls.push_back({this, std::move(take)});
    if ((argument == nullptr || sd_bus_message_append(created, "s", argument) >= 0) &&
        sd_bus_call_async(m_bus.get(), nullptr, created, answered, &m_calls.back(),
                          std::uint64_t(time)) >= 0) {
        ++m_open;
    }
}

std::chrono::microseconds BusCalls::left() const {
    return std::chrono::duration_cast<std::chrono::microseconds>(m_until -
                                                                 std::chrono::steady_clock::now());
}

void BusCalls::finish() {
    while (m_open > 0) {
        const auto time = left().count();
        const int handled = time > 0 ? sd_bus_process(m_bus.get(), nullptr) : -1;
        if (handled < 0 || (handled == 0 && sd_bus_wait(m_bus.get(), std::uint64_t(time)) < 0)) {
            return;
        }
    }
}

} // namespace perchly
