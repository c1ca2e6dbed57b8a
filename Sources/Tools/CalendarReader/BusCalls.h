#pragma once

#include <chrono>
#include <functional>
#include <list>
#include <memory>
#include <string>

struct sd_bus;
struct sd_bus_message;

namespace perchly {

struct BusMethod {
    std::string service;
    std::string path;
    const char *interface = nullptr;
    const char *name = nullptr;
};

/// Calls on the session's bus, as many at a time as there are, all up to the same moment, whatever
/// services and bus do. Services that are not there are started.
class BusCalls {
public:
    using Answer = std::function<void(sd_bus_message *answer)>;

    explicit BusCalls(std::chrono::steady_clock::time_point until)
        : m_until(until) {}

    /// False when there is no bus.
    [[nodiscard]] bool open();

    /// The answer comes during `finish`, at most once, and not on an error. A null argument is
    /// none. What an answer calls is awaited, too.
    void call(const BusMethod &method, const char *argument, Answer take);

    /// Returns when everything is answered, the bus is gone or the moment has come.
    void finish();

private:
    struct Release {
        void operator()(sd_bus *bus) const;
    };

    [[nodiscard]] std::chrono::microseconds left() const;

    struct Call {
        BusCalls *calls;
        Answer take;
    };

    const std::chrono::steady_clock::time_point m_until;
    std::list<Call> m_calls; ///< outlive the bus, which points to them
    std::size_t m_open = 0;
    std::unique_ptr<sd_bus, Release> m_bus;
};

} // namespace perchly
