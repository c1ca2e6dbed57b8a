#include "CanberraAlertSound.h"

#include <QApplication>

#include <canberra.h>

#include <chrono>
#include <future>
#include <thread>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr auto maxSoundTime = 10s;

void onFinished(ca_context *, uint32_t, int result, void *data) {
    static_cast<std::promise<int> *>(data)->set_value(result);
}

/// Blocks until the sound has been played. Returns CA_SUCCESS or an error.
int playAndWait() {
    ca_context *context = nullptr;
    int result = ca_context_create(&context);
    if (result != CA_SUCCESS) {
        return result;
    }
    ca_context_change_props(context, CA_PROP_APPLICATION_NAME, "Perchly", CA_PROP_APPLICATION_ID,
                            "org.perchly.Perchly", nullptr);
    std::promise<int> promise;
    std::future<int> finished = promise.get_future();
    ca_proplist *sound = nullptr;
    result = ca_proplist_create(&sound);
    if (result == CA_SUCCESS) {
        ca_proplist_sets(sound, CA_PROP_EVENT_ID, "bell");
        ca_proplist_sets(sound, CA_PROP_CANBERRA_CACHE_CONTROL, "never");
        result = ca_context_play_full(context, 0, sound, onFinished, &promise);
        ca_proplist_destroy(sound);
    }
    if (result == CA_SUCCESS && finished.wait_for(maxSoundTime) == std::future_status::ready) {
        result = finished.get();
    }
    ca_context_destroy(context); // no callback uses `promise` after this
    return result;
}

} // namespace

void CanberraAlertSound::play() {
    if (m_playing->exchange(true)) {
        return;
    }
    // Detached, since a server that never answers must not keep the program from ending.
    std::thread([playing = m_playing, weak = std::weak_ptr(m_receiver)] {
        const int result = playAndWait();
        *playing = false;
        if (const auto receiver = weak.lock(); receiver && result != CA_SUCCESS) {
            QMetaObject::invokeMethod(receiver.get(), &QApplication::beep, Qt::QueuedConnection);
        }
    }).detach();
}

} // namespace perchly
