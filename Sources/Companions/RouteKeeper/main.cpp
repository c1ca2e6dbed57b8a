// Waits until its parent ends, then redirects the streams that still go to the parent's sinks.
// KeptStreams.h describes its input on stdin.
#include "KeptStreams.h"
#include "ProcessLimits.h"

#include <pipewire/extensions/metadata.h>
#include <pipewire/pipewire.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <unistd.h>

using namespace perchly;

namespace {

const char *const targetKey = "target.object";
constexpr std::string_view ownPrefix = "perchly.";

struct Return {
    KeptStreams kept;
    pw_main_loop *loop = nullptr;
    pw_core *core = nullptr;
    pw_registry *registry = nullptr;
    pw_metadata *metadata = nullptr;
    int lastQuestion = -1;
    spa_hook coreListener{};
    spa_hook registryListener{};
    spa_hook metadataListener{};
};

void readUntilTheEnd(KeptStreams &kept) {
    std::array<char, 1024> bytes{};
    for (;;) {
        const ssize_t size = read(STDIN_FILENO, bytes.data(), bytes.size());
        if (size > 0) {
            kept.read({bytes.data(), std::size_t(size)});
        } else if (size == 0 || errno != EINTR) {
            return;
        }
    }
}

/// Only for streams that still go to one of the parent's sinks: others may have been moved, or
/// their numbers reused.
int onProperty(void *data, std::uint32_t subject, const char *key, const char *,
               const char *value) {
    auto &self = *static_cast<Return *>(data);
    auto &streams = self.kept.streams();
    const auto stream = streams.find(subject);
    if (stream == streams.end() || key == nullptr || value == nullptr ||
        std::strcmp(key, targetKey) != 0 || !std::string_view(value).starts_with(ownPrefix)) {
        return 0;
    }
    const KeptTarget target = stream->second;
    streams.erase(stream);
    const bool goesByItself = target.type.empty();
    pw_metadata_set_property(self.metadata, subject, targetKey,
                             goesByItself ? nullptr : target.type.c_str(),
                             goesByItself ? nullptr : target.value.c_str());
    if (streams.empty()) {
        self.lastQuestion = pw_core_sync(self.core, PW_ID_CORE, 0);
    }
    return 0;
}

constexpr pw_metadata_events metadataEvents{.version = PW_VERSION_METADATA_EVENTS,
                                            .property = onProperty};

void onGlobal(void *data, std::uint32_t id, std::uint32_t, const char *type, std::uint32_t,
              const spa_dict *properties) {
    auto &self = *static_cast<Return *>(data);
    const char *name =
        properties != nullptr ? spa_dict_lookup(properties, PW_KEY_METADATA_NAME) : nullptr;
    if (self.metadata != nullptr || name == nullptr || std::strcmp(name, "default") != 0 ||
        std::strcmp(type, PW_TYPE_INTERFACE_Metadata) != 0) {
        return;
    }
    self.metadata = static_cast<pw_metadata *>(
        pw_registry_bind(self.registry, id, type, PW_VERSION_METADATA, 0));
    if (self.metadata != nullptr) {
        pw_metadata_add_listener(self.metadata, &self.metadataListener, &metadataEvents, &self);
    }
}

constexpr pw_registry_events registryEvents{
    .version = PW_VERSION_REGISTRY_EVENTS, .global = onGlobal, .global_remove = nullptr};

void onDone(void *data, std::uint32_t, int number) {
    auto &self = *static_cast<Return *>(data);
    if (number == self.lastQuestion) {
        pw_main_loop_quit(self.loop);
    }
}

void onError(void *data, std::uint32_t id, int, int result, const char *) {
    if (id == PW_ID_CORE && result == -EPIPE) {
        pw_main_loop_quit(static_cast<Return *>(data)->loop);
    }
}

constexpr pw_core_events coreEvents = [] {
    pw_core_events events{};
    events.version = PW_VERSION_CORE_EVENTS;
    events.done = onDone;
    events.error = onError;
    return events;
}();

void sendBack(Return &self) {
    pw_init(nullptr, nullptr);
    self.loop = pw_main_loop_new(nullptr);
    pw_context *context = pw_context_new(pw_main_loop_get_loop(self.loop), nullptr, 0);
    self.core = context != nullptr ? pw_context_connect(context, nullptr, 0) : nullptr;
    // Without a core the server has gone, and its streams with it.
    if (self.core != nullptr) {
        pw_core_add_listener(self.core, &self.coreListener, &coreEvents, &self);
        self.registry = pw_core_get_registry(self.core, PW_VERSION_REGISTRY, 0);
        pw_registry_add_listener(self.registry, &self.registryListener, &registryEvents, &self);
        pw_main_loop_run(self.loop);
        if (self.metadata != nullptr) {
            pw_proxy_destroy(reinterpret_cast<pw_proxy *>(self.metadata));
        }
        pw_proxy_destroy(reinterpret_cast<pw_proxy *>(self.registry));
    }
    if (context != nullptr) {
        pw_context_destroy(context);
    }
    pw_main_loop_destroy(self.loop);
}

} // namespace

int main() {
    limitResources(256);
    // A signal to the whole process group must not end it before its parent.
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        std::signal(signal, SIG_IGN);
    }
    Return self;
    readUntilTheEnd(self.kept);
    if (!self.kept.streams().empty()) {
        limitProcess();
        sendBack(self);
    }
}
