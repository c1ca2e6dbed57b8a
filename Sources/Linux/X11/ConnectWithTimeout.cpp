#include "ConnectWithTimeout.h"

#include <future>
#include <thread>

namespace perchly {

// xcb_connect has no timeout, so a thread waits for it.
XConnectionPointer connectWithTimeout(std::chrono::milliseconds timeout) {
    std::packaged_task<XConnectionPointer()> attempt([] {
        XConnectionPointer connection(xcb_connect(nullptr, nullptr));
        return xcb_connection_has_error(connection.get()) == 0 ? std::move(connection) : nullptr;
    });
    std::future<XConnectionPointer> outcome = attempt.get_future();
    std::thread(std::move(attempt)).detach();
    const bool isReady = outcome.wait_for(timeout) == std::future_status::ready;
    return isReady ? outcome.get() : nullptr;
}

} // namespace perchly
