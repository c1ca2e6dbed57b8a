#include "ActivationTokens.h"

#include "WaylandConnection.h"
#include "xdg-activation-v1-client.h"

#include <QGuiApplication>
#include <QSemaphore>
#include <QWindow>

#include <unistd.h>

namespace perchly {

namespace {

constexpr int tokenTimeout = 300; // milliseconds

} // namespace

struct ActivationTokens::Answer {
    QSemaphore isReady;
    QByteArray token;
};

struct ActivationTokens::Listener {
    static void capabilities(void *data, wl_seat *seat, uint32_t has) {
        auto *tokens = static_cast<ActivationTokens *>(data);
        if ((has & WL_SEAT_CAPABILITY_POINTER) != 0 && tokens->m_pointer == nullptr) {
            tokens->m_pointer = wl_seat_get_pointer(seat);
            wl_pointer_add_listener(tokens->m_pointer, &pointer, data);
        }
        if ((has & WL_SEAT_CAPABILITY_KEYBOARD) != 0 && tokens->m_keyboard == nullptr) {
            tokens->m_keyboard = wl_seat_get_keyboard(seat);
            wl_keyboard_add_listener(tokens->m_keyboard, &keyboard, data);
        }
    }
    static void note(void *data, uint32_t serial) {
        static_cast<ActivationTokens *>(data)->m_serial = serial;
    }
    static void done(void *data, xdg_activation_token_v1 *request, const char *token) {
        const std::unique_ptr<std::shared_ptr<Answer>> answer(
            static_cast<std::shared_ptr<Answer> *>(data));
        (*answer)->token = token;
        (*answer)->isReady.release();
        xdg_activation_token_v1_destroy(request);
    }

    static constexpr wl_seat_listener seat{capabilities, nullptr};
    static constexpr wl_pointer_listener pointer = [] {
        wl_pointer_listener table{};
        table.enter = [](auto...) {};
        table.leave = [](auto...) {};
        table.motion = [](auto...) {};
        table.button = [](void *data, auto, uint32_t serial, auto...) { note(data, serial); };
        table.axis = [](auto...) {};
        return table;
    }();
    static constexpr wl_keyboard_listener keyboard = [] {
        wl_keyboard_listener table{};
        table.keymap = [](auto, auto, auto, int32_t file, auto) { close(file); };
        table.enter = [](auto...) {};
        table.leave = [](auto...) {};
        table.key = [](void *data, auto, uint32_t serial, auto...) { note(data, serial); };
        table.modifiers = [](auto...) {};
        return table;
    }();
    static constexpr xdg_activation_token_v1_listener token{done};
};

ActivationTokens::ActivationTokens(std::shared_ptr<WaylandConnection> connection)
    : m_connection(std::move(connection))
    , m_activation(
          static_cast<xdg_activation_v1 *>(m_connection->bind(xdg_activation_v1_interface, 1)))
    // The first version has few events.
    , m_seat(static_cast<wl_seat *>(m_connection->bind(wl_seat_interface, 1))) {
    for (void *object : {static_cast<void *>(m_activation), static_cast<void *>(m_seat)}) {
        if (object != nullptr) {
            m_connection->moveTo(WaylandConnection::Queue::Qt, static_cast<wl_proxy *>(object));
        }
    }
    if (m_seat != nullptr) {
        wl_seat_add_listener(m_seat, &Listener::seat, this);
        m_connection->flush();
    }
}

ActivationTokens::~ActivationTokens() {
    for (void *object : {static_cast<void *>(m_pointer), static_cast<void *>(m_keyboard),
                         static_cast<void *>(m_seat), static_cast<void *>(m_activation)}) {
        if (object != nullptr) {
            wl_proxy_destroy(static_cast<wl_proxy *>(object));
        }
    }
}

std::function<QByteArray()> ActivationTokens::ask() {
    if (m_activation == nullptr) {
        return {};
    }
    const auto answer = std::make_shared<Answer>();
    xdg_activation_token_v1 *token = xdg_activation_v1_get_activation_token(m_activation);
    xdg_activation_token_v1_add_listener(token, &Listener::token, new std::shared_ptr(answer));
    if (m_serial != 0) {
        xdg_activation_token_v1_set_serial(token, m_serial, m_seat);
    }
    // Compositors refuse a surface without the keyboard, such as the shelf's under the pointer.
    QWindow *window = QGuiApplication::focusWindow();
    wl_surface *surface = window != nullptr ? WaylandConnection::surfaceOf(*window) : nullptr;
    if (surface != nullptr) { // a window that is being closed has none
        xdg_activation_token_v1_set_surface(token, surface);
    }
    xdg_activation_token_v1_commit(token);
    m_connection->flush();
    return [answer] {
        const bool isReady = answer->isReady.tryAcquire(1, tokenTimeout);
        answer->isReady.release(isReady ? 1 : 0); // for the next call
        return isReady ? answer->token : QByteArray();
    };
}

} // namespace perchly
