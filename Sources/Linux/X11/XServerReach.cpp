#include "XServerReach.h"

#include <xcb/xcb.h>

#include <condition_variable>
#include <memory>
#include <mutex>
#include <system_error>
#include <thread>

namespace perchly {

namespace {

struct Attempt {
    std::mutex mutex;
    std::condition_variable finished;
    bool isFinished = false;
    bool isAbandoned = false;
    XConnectionPointer connection;
    int screenNumber = 0;
};

XConnectionPointer usable(xcb_connection_t *connection) {
    XConnectionPointer result(connection);
    if (xcb_connection_has_error(connection) != 0 ||
        xcb_setup_roots_length(xcb_get_setup(connection)) == 0) {
        result.reset();
    }
    return result;
}

// The library has no deadline for connecting, so a thread waits for it.
void attemptToConnect(const std::shared_ptr<Attempt> &attempt, const QByteArray &displayName) {
    int screenNumber = 0;
    const char *name = displayName.isEmpty() ? nullptr : displayName.constData();
    XConnectionPointer connection = usable(xcb_connect(name, &screenNumber));
    const std::lock_guard lock(attempt->mutex);
    if (attempt->isAbandoned) {
        return;
    }
    attempt->connection = std::move(connection);
    attempt->screenNumber = screenNumber;
    attempt->isFinished = true;
    attempt->finished.notify_one();
}

constexpr std::chrono::milliseconds firstDelay{500}; // each further one is twice as long
constexpr int mostAttempts = 6;

} // namespace

void CloseXConnection::operator()(xcb_connection_t *connection) const {
    xcb_disconnect(connection);
}

XConnectionPointer connectToXServer(const QByteArray &displayName, int *screenNumber,
                                    std::chrono::milliseconds patience) {
    if (displayName.isEmpty() && qgetenv("DISPLAY").isEmpty()) {
        return nullptr;
    }
    const auto attempt = std::make_shared<Attempt>();
    try {
        std::thread(attemptToConnect, attempt, displayName).detach();
    } catch (const std::system_error &) {
        return nullptr;
    }
    std::unique_lock lock(attempt->mutex);
    if (!attempt->finished.wait_for(lock, patience, [&] { return attempt->isFinished; })) {
        attempt->isAbandoned = true;
        return nullptr;
    }
    if (screenNumber) {
        *screenNumber = attempt->screenNumber;
    }
    return std::move(attempt->connection);
}

std::optional<std::chrono::milliseconds> delayOfAttempt(int failures) {
    return failures < mostAttempts ? std::optional(firstDelay * (1 << failures)) : std::nullopt;
}

} // namespace perchly
