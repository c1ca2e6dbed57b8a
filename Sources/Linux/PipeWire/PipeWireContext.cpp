#include "PipeWireContext.h"

#include <QPromise>

#include <system_error>
#include <thread>

namespace perchly {

namespace {

// The configuration that gives a client's audio threads real-time priority.
#if PW_CHECK_VERSION(1, 4, 0)
constexpr const char *realTimeConfig = "client.conf";
#else
constexpr const char *realTimeConfig = "client-rt.conf";
#endif

PipeWireContext make() {
    pw_init(nullptr, nullptr);
    PipeWireContext made;
    made.loop.reset(pw_loop_new(nullptr));
    if (made.loop) {
        // Without PipeWire's package, this fails and prints that its settings are missing.
        const auto level = pw_log_level;
        pw_log_set_level(SPA_LOG_LEVEL_NONE);
        made.context.reset(pw_context_new(
            made.loop.get(), pw_properties_new(PW_KEY_CONFIG_NAME, realTimeConfig, nullptr), 0));
        pw_log_set_level(level);
    }
    return made.context ? std::move(made) : PipeWireContext();
}

} // namespace

QFuture<PipeWireContext> makePipeWireContext() {
    QPromise<PipeWireContext> promise;
    QFuture<PipeWireContext> future = promise.future();
    promise.start();
    const auto makeOnThread = [](QPromise<PipeWireContext> made) {
        made.addResult(make());
        made.finish();
    };
    try {
        // Detached, since a bus that never answers must not keep the program from ending.
        std::thread(makeOnThread, std::move(promise)).detach();
    } catch (const std::system_error &) {
        // The promise is destroyed, which ends the future.
    }
    return future;
}

} // namespace perchly
