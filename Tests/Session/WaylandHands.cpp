// A pointer and a keyboard for a Wayland compositor, moved by commands on stdin, one per line:
//   move X Y WIDTH HEIGHT   to a point of the layout, whose size follows
//   button CODE 0|1         as in linux/input-event-codes.h
//   key KEYSYM 0|1          on a US keyboard
// Each is answered by "done" once the compositor has handled it.

#include "virtual-keyboard-unstable-v1-client.h"
#include "wlr-virtual-pointer-unstable-v1-client.h"

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <memory>
#include <string>
#include <sys/mman.h>
#include <unistd.h>
#include <xkbcommon/xkbcommon.h>

namespace {

struct Globals {
    wl_seat *seat = nullptr;
    zwlr_virtual_pointer_manager_v1 *pointers = nullptr;
    zwp_virtual_keyboard_manager_v1 *keyboards = nullptr;
};

void bindGlobal(void *data, wl_registry *registry, uint32_t name, const char *interface,
                uint32_t /*version*/) {
    auto *globals = static_cast<Globals *>(data);
    const auto bind = [&](auto *&object, const wl_interface &wanted) {
        if (std::strcmp(interface, wanted.name) == 0) {
            object = static_cast<std::remove_reference_t<decltype(object)>>(
                wl_registry_bind(registry, name, &wanted, 1));
        }
    };
    bind(globals->seat, wl_seat_interface);
    bind(globals->pointers, zwlr_virtual_pointer_manager_v1_interface);
    bind(globals->keyboards, zwp_virtual_keyboard_manager_v1_interface);
}

constexpr wl_registry_listener globalsListener{bindGlobal, [](void *, wl_registry *, uint32_t) {}};

uint32_t now() {
    const auto time = std::chrono::steady_clock::now().time_since_epoch();
    return uint32_t(std::chrono::duration_cast<std::chrono::milliseconds>(time).count());
}

class Keyboard {
public:
    explicit Keyboard(zwp_virtual_keyboard_v1 *device)
        : m_device(device) {
        const std::unique_ptr<char, decltype(&std::free)> text(
            xkb_keymap_get_as_string(m_keymap, XKB_KEYMAP_FORMAT_TEXT_V1), std::free);
        const std::size_t size = std::strlen(text.get()) + 1;
        const int file = memfd_create("keymap", MFD_CLOEXEC);
        if (write(file, text.get(), size) == ssize_t(size)) {
            zwp_virtual_keyboard_v1_keymap(device, WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1, file,
                                           uint32_t(size));
        }
        close(file);
    }

    void press(const std::string &name, uint32_t state) {
        const xkb_keycode_t code = codeOf(xkb_keysym_from_name(name.c_str(), XKB_KEYSYM_NO_FLAGS));
        zwp_virtual_keyboard_v1_key(m_device, now(), code - 8, state);
        xkb_state_update_key(m_state, code, state != 0 ? XKB_KEY_DOWN : XKB_KEY_UP);
        const auto held = [this](xkb_state_component which) {
            return xkb_state_serialize_mods(m_state, which);
        };
        zwp_virtual_keyboard_v1_modifiers(m_device, held(XKB_STATE_MODS_DEPRESSED),
                                          held(XKB_STATE_MODS_LATCHED), held(XKB_STATE_MODS_LOCKED),
                                          0);
    }

private:
    [[nodiscard]] xkb_keycode_t codeOf(xkb_keysym_t wanted) const {
        for (xkb_keycode_t code = 9; code < 256; ++code) {
            for (xkb_level_index_t level = 0; level < 2; ++level) {
                const xkb_keysym_t *symbols = nullptr;
                if (xkb_keymap_key_get_syms_by_level(m_keymap, code, 0, level, &symbols) > 0 &&
                    symbols[0] == wanted) {
                    return code;
                }
            }
        }
        std::cerr << "no such key\n";
        std::exit(EXIT_FAILURE);
    }

    zwp_virtual_keyboard_v1 *m_device;
    xkb_keymap *m_keymap = [] {
        const xkb_rule_names names{"", "", "us", "", ""};
        return xkb_keymap_new_from_names(xkb_context_new(XKB_CONTEXT_NO_FLAGS), &names,
                                         XKB_KEYMAP_COMPILE_NO_FLAGS);
    }();
    xkb_state *m_state = xkb_state_new(m_keymap);
};

} // namespace

int main() {
    wl_display *display = wl_display_connect(nullptr);
    if (display == nullptr) {
        return EXIT_FAILURE;
    }
    Globals globals;
    wl_registry *registry = wl_display_get_registry(display);
    wl_registry_add_listener(registry, &globalsListener, &globals);
    wl_display_roundtrip(display);
    auto *pointer =
        zwlr_virtual_pointer_manager_v1_create_virtual_pointer(globals.pointers, globals.seat);
    Keyboard keyboard(
        zwp_virtual_keyboard_manager_v1_create_virtual_keyboard(globals.keyboards, globals.seat));
    std::string command;
    std::string key;
    uint32_t a = 0;
    uint32_t b = 0;
    uint32_t width = 0;
    uint32_t height = 0;
    for (std::cout << "done" << std::endl; std::cin >> command; std::cout << "done" << std::endl) {
        if (command == "move" && std::cin >> a >> b >> width >> height) {
            zwlr_virtual_pointer_v1_motion_absolute(pointer, now(), a, b, width, height);
        } else if (command == "button" && std::cin >> a >> b) {
            zwlr_virtual_pointer_v1_button(pointer, now(), a, b);
        } else if (command == "key" && std::cin >> key >> b) {
            keyboard.press(key, b);
        }
        zwlr_virtual_pointer_v1_frame(pointer);
        wl_display_roundtrip(display);
    }
    return EXIT_SUCCESS;
}
