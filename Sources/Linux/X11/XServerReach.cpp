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
    xcb_connection_t *connection = nullptr;
    int screenNumber = 0;
};

xcb_connection_t *usable(xcb_connection_t *connection) {
    if (xcb_connection_has_error(connection) == 0 &&
        xcb_setup_roots_length(xcb_get_setup(connection)) > 0)
        return connection;
    xcb_disconnect(connection);
    return nullptr;
}

// The library has no deadline for connecting, so a thread waits for it.
void attemptToConnect(const std::shared_ptr<Attempt> &attempt, const QByteArray &displayName) {
    int screenNumber = 0;
    const char *name = displayName.isEmpty() ? nullptr : displayName.constData();
    xcb_connection_t *connection = usable(xcb_connect(name, &screenNumber));
    const std::lock_guard lock(attempt->mutex);
    if (attempt->isAbandoned) {
        if (connection)
            xcb_disconnect(connection);
        return;
    }
    attempt->connection = connection;
    attempt->screenNumber = screenNumber;
    attempt->isFinished = true;
    attempt->finished.notify_one();
}

} // namespace

bool canReachXServer(const QByteArray &displayName, std::chrono::milliseconds patience) {
    if (displayName.isEmpty() && qgetenv("DISPLAY").isEmpty())
        return false;
    xcb_connection_t *connection = connectToXServer(displayName, nullptr, patience);
    if (!connection)
        return false;
    xcb_disconnect(connection);
    return true;
}

xcb_connection_t *connectToXServer(const QByteArray &displayName, int *screenNumber,
                                   std::chrono::milliseconds patience) {
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
    if (screenNumber)
        *screenNumber = attempt->screenNumber;
    return attempt->connection;
}

} // namespace perchly
