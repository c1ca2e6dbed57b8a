#include "XServerReach.h"

#include <xcb/xcb.h>

#include <future>
#include <thread>

namespace perchly {

namespace {

constexpr std::chrono::milliseconds firstDelay{500}; // each further one is twice as long
constexpr int maxAttempts = 6;

struct Connected {
    XConnectionPointer connection;
    int screenNumber = 0;
};

Connected connectNow(const QByteArray &displayName) {
    Connected result;
    const char *name = displayName.isEmpty() ? nullptr : displayName.constData();
    result.connection.reset(xcb_connect(name, &result.screenNumber));
    if (xcb_connection_has_error(result.connection.get()) != 0) {
        result.connection.reset();
    }
    return result;
}

} // namespace

void CloseXConnection::operator()(xcb_connection_t *connection) const {
    xcb_disconnect(connection);
}

// xcb_connect has no timeout, so a thread waits for it.
XConnectionPointer connectToXServer(const QByteArray &displayName, int *screenNumber,
                                    std::chrono::milliseconds timeout) {
    if (displayName.isEmpty() && qEnvironmentVariableIsEmpty("DISPLAY")) {
        return nullptr;
    }
    std::packaged_task<Connected()> attempt([displayName] { return connectNow(displayName); });
    std::future<Connected> outcome = attempt.get_future();
    std::thread(std::move(attempt)).detach();
    if (outcome.wait_for(timeout) != std::future_status::ready) {
        return nullptr;
    }
    Connected connected = outcome.get();
    if (screenNumber != nullptr) {
        *screenNumber = connected.screenNumber;
    }
    return std::move(connected.connection);
}

std::optional<std::chrono::milliseconds> delayOfAttempt(int failures) {
    return failures < maxAttempts ? std::optional(firstDelay * (1 << failures)) : std::nullopt;
}

} // namespace perchly
