#include "X11HotKeys.h"

namespace perchly {

namespace {

// A change of the layout arrives as a burst.
constexpr std::chrono::milliseconds keyboardSettleTime{50};

constexpr quint16 chordModifiers = XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1 |
                                   XCB_MOD_MASK_2 | XCB_MOD_MASK_3 | XCB_MOD_MASK_4 |
                                   XCB_MOD_MASK_5;

} // namespace

X11HotKeys::X11HotKeys(QObject *parent)
    : HotKeys(parent) {
    m_keyboardChange.setSingleShot(true);
    m_keyboardChange.setInterval(keyboardSettleTime);
    connect(&m_keyboardChange, &QTimer::timeout, this, &X11HotKeys::followKeyboardChange);
    connect(&m_connection, &XcbConnection::eventArrived, this, &X11HotKeys::handleEvent);
    connect(&m_connection, &XcbConnection::restored, this, &X11HotKeys::grabAnew);
    m_keyboard = readKeyboard().value_or(KeyboardMap());
}

bool X11HotKeys::registerChord(int identifier, Chord chord) {
    if (const auto old = m_registrations.find(identifier); old != m_registrations.end()) {
        release(*old);
        m_registrations.erase(old);
    }
    Registration registration{.chord = chord};
    const bool isRefused = grab(registration) == false;
    if (!isRefused) {
        m_registrations.insert(identifier, registration);
    }
    return !isRefused;
}

void X11HotKeys::handleEvent(const xcb_generic_event_t *event) {
    switch (event->response_type & 0x7f) {
    case XCB_KEY_PRESS:
        handlePress(*reinterpret_cast<const xcb_key_press_event_t *>(event));
        break;
    case XCB_KEY_RELEASE:
        handleRelease(*reinterpret_cast<const xcb_key_release_event_t *>(event));
        break;
    case XCB_MAPPING_NOTIFY:
        if (reinterpret_cast<const xcb_mapping_notify_event_t *>(event)->request !=
            XCB_MAPPING_POINTER) {
            m_keyboardChange.start();
        }
        break;
    default:
        break;
    }
}

void X11HotKeys::handlePress(const xcb_key_press_event_t &press) {
    const int held = press.state & chordModifiers & ~m_keyboard.numLockMask();
    for (auto it = m_registrations.begin(); it != m_registrations.end(); ++it) {
        if (!it->isHeld || it->keycode != press.detail || it->modifiers != held) {
            continue;
        }
        // Key repeat releases and presses at the same moment.
        if (it->releasedAt == 0 || it->releasedAt != press.time) {
            Q_EMIT pressed(it.key());
        }
        return;
    }
}

void X11HotKeys::handleRelease(const xcb_key_release_event_t &release) {
    for (Registration &registration : m_registrations) {
        if (registration.keycode == release.detail) {
            registration.releasedAt = release.time;
        }
    }
}

// Most of what is announced changes nothing: another keyboard of the same layout was typed on. A
// chord that is let go and grabbed again then would miss the press that caused it.
void X11HotKeys::followKeyboardChange() {
    const std::optional<KeyboardMap> keyboard = readKeyboard();
    if (keyboard && *keyboard != m_keyboard) {
        grabAnew();
    }
}

void X11HotKeys::grabAnew() {
    for (Registration &registration : m_registrations) {
        release(registration);
    }
    m_keyboard = readKeyboard().value_or(m_keyboard);
    for (Registration &registration : m_registrations) {
        if (grab(registration) == false) {
            qWarning("A hot key was lost with a change of the keyboard.");
        }
    }
}

std::optional<KeyboardMap> X11HotKeys::readKeyboard() {
    if (!m_connection.isAlive()) {
        return std::nullopt;
    }
    xcb_connection_t *connection = m_connection.get();
    const xcb_setup_t *setup = xcb_get_setup(connection);
    const auto count = static_cast<quint8>(setup->max_keycode - setup->min_keycode + 1);
    const auto mapCookie = xcb_get_keyboard_mapping(connection, setup->min_keycode, count);
    const auto modifierCookie = xcb_get_modifier_mapping(connection);
    const auto map = m_connection.reply<xcb_get_keyboard_mapping_reply_t>(mapCookie);
    const auto modifiers = m_connection.reply<xcb_get_modifier_mapping_reply_t>(modifierCookie);
    if (!map || !modifiers || map->keysyms_per_keycode == 0) {
        return std::nullopt;
    }
    const xcb_keysym_t *keysyms = xcb_get_keyboard_mapping_keysyms(map.get());
    const xcb_keycode_t *keycodes = xcb_get_modifier_mapping_keycodes(modifiers.get());
    return KeyboardMap{
        .firstKeycode = setup->min_keycode,
        .keysymsPerKeycode = map->keysyms_per_keycode,
        .keysyms = {keysyms, keysyms + xcb_get_keyboard_mapping_keysyms_length(map.get())},
        .keycodesPerModifier = modifiers->keycodes_per_modifier,
        .modifierKeycodes = {keycodes,
                             keycodes + xcb_get_modifier_mapping_keycodes_length(modifiers.get())}};
}

std::optional<bool> X11HotKeys::grab(Registration &registration) {
    if (!m_connection.isAlive() || m_keyboard.keysyms.isEmpty()) {
        return std::nullopt;
    }
    const auto keycode = m_keyboard.keycodeFor(registration.chord.key);
    if (!keycode) {
        return false;
    }
    registration.keycode = *keycode;
    registration.modifiers = m_keyboard.maskFor(registration.chord.modifiers);
    QList<xcb_void_cookie_t> cookies;
    for (const quint16 locks : lockVariants()) {
        cookies.append(xcb_grab_key_checked(m_connection.get(), 1, m_connection.root(),
                                            static_cast<quint16>(registration.modifiers | locks),
                                            registration.keycode, XCB_GRAB_MODE_ASYNC,
                                            XCB_GRAB_MODE_ASYNC));
    }
    const std::optional<bool> granted = m_connection.succeeded(cookies);
    registration.isHeld = granted.value_or(true); // it is granted when the server comes to it
    if (granted == false) {
        release(registration);
    }
    return granted;
}

void X11HotKeys::release(Registration &registration) {
    registration.isHeld = false;
    if (!m_connection.isAlive()) {
        return;
    }
    for (const quint16 locks : lockVariants()) {
        xcb_ungrab_key(m_connection.get(), registration.keycode, m_connection.root(),
                       static_cast<quint16>(registration.modifiers | locks));
    }
    m_connection.flush();
}

QList<quint16> X11HotKeys::lockVariants() const {
    const quint16 numLock = m_keyboard.numLockMask();
    QList<quint16> variants{0, XCB_MOD_MASK_LOCK};
    if (numLock != 0) {
        variants << numLock << static_cast<quint16>(numLock | XCB_MOD_MASK_LOCK);
    }
    return variants;
}

} // namespace perchly
