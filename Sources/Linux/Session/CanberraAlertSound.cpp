#include "CanberraAlertSound.h"

#include <QApplication>

#include <canberra.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>

namespace perchly {

namespace {

/// Waits for the end of one sound.
class Ending {
public:
    void set(int result) {
        const std::scoped_lock lock(m_mutex);
        m_result = result;
        m_changed.notify_all();
    }

    [[nodiscard]] int wait() {
        std::unique_lock lock(m_mutex);
        m_changed.wait_for(lock, std::chrono::seconds(10), [this] { return m_result <= 0; });
        return std::min(m_result, int(CA_SUCCESS));
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    int m_result = 1;
};

void onFinished(ca_context *, uint32_t, int result, void *data) {
    static_cast<Ending *>(data)->set(result);
}

/// Blocks until the sound has been heard; CA_SUCCESS, or why it was not.
int playAndWait() {
    ca_context *context = nullptr;
    int result = ca_context_create(&context);
    if (result != CA_SUCCESS) {
        return result;
    }
    ca_context_change_props(context, CA_PROP_APPLICATION_NAME, "Perchly", CA_PROP_APPLICATION_ID,
                            "org.perchly.Perchly", nullptr);
    Ending ending;
    ca_proplist *sound = nullptr;
    result = ca_proplist_create(&sound);
    if (result == CA_SUCCESS) {
        ca_proplist_sets(sound, CA_PROP_EVENT_ID, "bell");
        ca_proplist_sets(sound, CA_PROP_CANBERRA_CACHE_CONTROL, "never");
        result = ca_context_play_full(context, 0, sound, onFinished, &ending);
        ca_proplist_destroy(sound);
    }
    if (result == CA_SUCCESS) {
        result = ending.wait();
    }
    ca_context_destroy(context); // ends the sound's callbacks before `ending` goes
    return result;
}

} // namespace

struct CanberraAlertSound::State {
    std::mutex mutex;
    std::unique_ptr<QObject> receiver = std::make_unique<QObject>();
    Fallback fallback;
    bool playing = false;
};

CanberraAlertSound::CanberraAlertSound()
    : CanberraAlertSound([] {
        if (qobject_cast<QGuiApplication *>(QCoreApplication::instance()) != nullptr) {
            QApplication::beep();
        }
    }) {}

CanberraAlertSound::CanberraAlertSound(Fallback fallback)
    : m_state(std::make_shared<State>()) {
    m_state->fallback = std::move(fallback);
}

CanberraAlertSound::~CanberraAlertSound() {
    const std::scoped_lock lock(m_state->mutex);
    m_state->receiver.reset();
}

void CanberraAlertSound::play() {
    {
        const std::scoped_lock lock(m_state->mutex);
        if (std::exchange(m_state->playing, true)) {
            return;
        }
    }
    const auto playOnThread = [state = m_state] {
        const int result = playAndWait();
        const std::scoped_lock lock(state->mutex);
        state->playing = false;
        if (result != CA_SUCCESS && state->receiver) {
            QMetaObject::invokeMethod(state->receiver.get(), state->fallback, Qt::QueuedConnection);
        }
    };
    try {
        // Detached, since a server that never answers must not keep the program from ending.
        std::thread(playOnThread).detach();
    } catch (const std::system_error &) {
        m_state->playing = false; // no thread to be had, and none that shares the state
        m_state->fallback();
    }
}

} // namespace perchly
