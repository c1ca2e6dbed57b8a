#include "X11HotKeys.h"

#include <QGuiApplication>
#include <QHash>
#include <X11/keysym.h>
#include <xcb/xcb_keysyms.h>

namespace perchly {

namespace {

// A layout change arrives as a burst.
constexpr std::chrono::milliseconds keyboardSettleTime{50};

constexpr quint16 lockModifiers = XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2; // Caps Lock, Num Lock
constexpr quint16 lockVariants[] = {0, XCB_MOD_MASK_LOCK, XCB_MOD_MASK_2, lockModifiers};

quint16 maskOf(Qt::KeyboardModifiers modifiers) {
    const auto mask = [modifiers](Qt::KeyboardModifier modifier, int bit) {
        return modifiers.testFlag(modifier) ? bit : 0;
    };
    return static_cast<quint16>(mask(Qt::ShiftModifier, XCB_MOD_MASK_SHIFT) |
                                mask(Qt::ControlModifier, XCB_MOD_MASK_CONTROL) |
                                mask(Qt::AltModifier, XCB_MOD_MASK_1) |
                                mask(Qt::MetaModifier, XCB_MOD_MASK_4));
}

// Latin-1 keysyms equal their characters.
xcb_keysym_t keysymOf(Qt::Key key) {
    const auto code = static_cast<xcb_keysym_t>(key);
    if (key >= Qt::Key_A && key <= Qt::Key_Z) {
        return code + ('a' - 'A');
    }
    if (key >= Qt::Key_F1 && key <= Qt::Key_F35) {
        return XK_F1 + (code - Qt::Key_F1);
    }
    static const QHash<Qt::Key, xcb_keysym_t> otherKeys{
        {Qt::Key_Tab, XK_Tab},        {Qt::Key_Backtab, XK_ISO_Left_Tab},
        {Qt::Key_Return, XK_Return},  {Qt::Key_Enter, XK_KP_Enter},
        {Qt::Key_Escape, XK_Escape},  {Qt::Key_Backspace, XK_BackSpace},
        {Qt::Key_Insert, XK_Insert},  {Qt::Key_Delete, XK_Delete},
        {Qt::Key_Home, XK_Home},      {Qt::Key_End, XK_End},
        {Qt::Key_PageUp, XK_Page_Up}, {Qt::Key_PageDown, XK_Page_Down},
        {Qt::Key_Left, XK_Left},      {Qt::Key_Right, XK_Right},
        {Qt::Key_Up, XK_Up},          {Qt::Key_Down, XK_Down},
        {Qt::Key_Print, XK_Print},    {Qt::Key_Pause, XK_Pause},
        {Qt::Key_Menu, XK_Menu}};
    return otherKeys.value(key, code);
}

// The letter's position on a Latin keyboard; keycodes are the same on all Linux systems.
std::optional<xcb_keycode_t> physicalKeyOf(Qt::Key key) {
    constexpr QLatin1StringView rows("QWERTYUIOP    ASDFGHJKL     ZXCVBNM");
    constexpr int firstKeycode = 24;
    const qsizetype place =
        key >= Qt::Key_A && key <= Qt::Key_Z ? rows.indexOf(QLatin1Char(char(key))) : -1;
    return place < 0 ? std::nullopt : std::optional(xcb_keycode_t(firstKeycode + place));
}

} // namespace

X11HotKeys::X11HotKeys() {
    m_keyboardChange.setSingleShot(true);
    m_keyboardChange.setInterval(keyboardSettleTime);
    connect(&m_keyboardChange, &QTimer::timeout, this, &HotKeys::keyboardChanged);
    connect(&m_connection, &XcbConnection::eventArrived, this, &X11HotKeys::handleEvent);
}

// Most announcements of a new layout change nothing: the user typed on another keyboard with the
// same layout. Grabbing the chord again would miss the press that caused the announcement.
bool X11HotKeys::registerChord(int identifier, QKeyCombination chord) {
    const auto keycode = keycodeFor(chord.key());
    const Registration wanted{.keycode = keycode.value_or(0),
                              .modifiers = maskOf(chord.keyboardModifiers())};
    const Registration current = m_registrations.value(identifier);
    if (keycode && current.keycode == wanted.keycode && current.modifiers == wanted.modifiers) {
        return true;
    }
    releaseChord(identifier);
    if (!keycode || !grab(wanted)) {
        return false;
    }
    m_registrations.insert(identifier, wanted);
    return true;
}

void X11HotKeys::releaseChord(int identifier) {
    if (const auto found = m_registrations.constFind(identifier); found != m_registrations.cend()) {
        release(*found);
        m_registrations.erase(found);
    }
}

void X11HotKeys::setKeyboardGrabbed(bool on) {
    if (m_grabbing) {
        m_grabbing->setKeyboardGrabEnabled(false);
    }
    m_grabbing = on ? QGuiApplication::focusWindow() : nullptr;
    if (m_grabbing) {
        m_grabbing->setKeyboardGrabEnabled(true);
    }
}

void X11HotKeys::handleEvent(const xcb_generic_event_t *event) {
    switch (event->response_type & 0x7f) {
    case XCB_KEY_PRESS:
        handlePress(*reinterpret_cast<const xcb_key_press_event_t *>(event));
        break;
    case XCB_KEY_RELEASE: {
        const auto *release = reinterpret_cast<const xcb_key_release_event_t *>(event);
        for (Registration &registration : m_registrations) {
            if (registration.keycode == release->detail) {
                registration.releasedAt = release->time;
            }
        }
        break;
    }
    case XCB_MAPPING_NOTIFY:
        m_keyboardChange.start();
        break;
    default:
        break;
    }
}

void X11HotKeys::handlePress(const xcb_key_press_event_t &press) {
    const int held = press.state & 0xff & ~lockModifiers;
    for (auto [identifier, registration] : m_registrations.asKeyValueRange()) {
        // A key repeat has a release and a press with the same time.
        if (registration.keycode == press.detail && registration.modifiers == held &&
            registration.releasedAt != press.time) {
            Q_EMIT pressed(identifier);
        }
    }
}

/// The key that types this character without modifiers, in the first layout if possible; else the
/// key in its position on a Latin keyboard. nullopt if the server does not answer.
std::optional<xcb_keycode_t> X11HotKeys::keycodeFor(Qt::Key key) {
    if (!m_connection.isAlive()) {
        return std::nullopt;
    }
    const xcb_keysym_t keysym = keysymOf(key);
    const std::unique_ptr<xcb_key_symbols_t, decltype(&xcb_key_symbols_free)> symbols(
        xcb_key_symbols_alloc(m_connection.get()), xcb_key_symbols_free);
    if (!m_connection.sync()) { // otherwise the next call would wait without a timeout
        return std::nullopt;
    }
    const XcbPointer<xcb_keycode_t[]> keycodes(xcb_key_symbols_get_keycode(symbols.get(), keysym));
    if (!keycodes || keycodes[0] == XCB_NO_SYMBOL) {
        return physicalKeyOf(key);
    }
    for (int i = 0; keycodes[i] != XCB_NO_SYMBOL; ++i) {
        if (xcb_key_symbols_get_keysym(symbols.get(), keycodes[i], 0) == keysym) {
            return keycodes[i];
        }
    }
    return keycodes[0];
}

bool X11HotKeys::grab(const Registration &registration) {
    QList<xcb_void_cookie_t> cookies;
    for (const quint16 locks : lockVariants) {
        cookies.append(xcb_grab_key_checked(m_connection.get(), 1, m_connection.root(),
                                            static_cast<quint16>(registration.modifiers | locks),
                                            registration.keycode, XCB_GRAB_MODE_ASYNC,
                                            XCB_GRAB_MODE_ASYNC));
    }
    const bool isGranted = m_connection.succeeded(cookies);
    if (!isGranted) {
        release(registration);
    }
    return isGranted;
}

void X11HotKeys::release(const Registration &registration) {
    for (const quint16 locks : lockVariants) {
        xcb_ungrab_key(m_connection.get(), registration.keycode, m_connection.root(),
                       static_cast<quint16>(registration.modifiers | locks));
    }
    xcb_flush(m_connection.get());
}

} // namespace perchly
