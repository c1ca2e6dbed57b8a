#pragma once

#include "HotKeys.h"
#include "XcbConnection.h"

#include <QMap>
#include <QPointer>
#include <QTimer>
#include <QWindow>

#include <optional>

namespace perchly {

/// Chords grabbed on the root window, in every state of Caps Lock and Num Lock. Alt is Mod1, and
/// Meta, the Super key, is Mod4.
class X11HotKeys : public HotKeys {
    Q_OBJECT
public:
    X11HotKeys();

    /// Accepts Latin-1 characters, function keys and those that move the cursor or edit. Also
    /// returns false if the server does not answer in time. A chord whose key is still the same
    /// stays grabbed.
    [[nodiscard]] bool registerChord(int identifier, QKeyCombination chord) override;
    void releaseChord(int identifier) override;
    void setKeyboardGrabbed(bool on) override;

private:
    struct Registration {
        xcb_keycode_t keycode = 0;
        quint16 modifiers = 0;
        xcb_timestamp_t releasedAt = 0; ///< server time of the last release
    };

    void handleEvent(const xcb_generic_event_t *event);
    void handlePress(const xcb_key_press_event_t &press);
    [[nodiscard]] std::optional<xcb_keycode_t> keycodeFor(Qt::Key key);
    [[nodiscard]] bool grab(const Registration &registration);
    void release(const Registration &registration);

    XcbConnection m_connection;
    QMap<int, Registration> m_registrations;
    QTimer m_keyboardChange;
    QPointer<QWindow> m_grabbing; ///< the window that has grabbed the keyboard
};

} // namespace perchly
