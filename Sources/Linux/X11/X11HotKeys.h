#pragma once

#include "HotKeys.h"
#include "XcbConnection.h"

#include <QMap>
#include <QTimer>

#include <optional>

namespace perchly {

/// Chords grabbed on the root window, in every state of Caps Lock and Num Lock. They follow changes
/// of the keyboard layout. Option is Alt (Mod1), Command is Super (Mod4).
class X11HotKeys : public HotKeys {
    Q_OBJECT
public:
    X11HotKeys();

    /// Accepts letters, digits, Space and other Latin-1 characters. Also returns false if the
    /// server does not answer in time.
    [[nodiscard]] bool registerChord(int identifier, Chord chord) override;

private:
    struct Registration {
        Chord chord;
        xcb_keycode_t keycode = 0;
        quint16 modifiers = 0;
        xcb_timestamp_t releasedAt = 0; ///< server time of the last release
    };

    void handleEvent(const xcb_generic_event_t *event);
    void handlePress(const xcb_key_press_event_t &press);
    void followKeyboardChange();
    [[nodiscard]] std::optional<xcb_keycode_t> keycodeFor(Qt::Key key);
    [[nodiscard]] bool grab(const Registration &registration);
    void release(const Registration &registration);

    XcbConnection m_connection;
    QMap<int, Registration> m_registrations;
    QTimer m_keyboardChange;
};

} // namespace perchly
