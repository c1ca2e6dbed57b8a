#pragma once

#include "HotKeys.h"
#include "KeyboardMap.h"
#include "XcbConnection.h"

#include <QMap>
#include <QTimer>

#include <optional>

namespace perchly {

/// Chords grabbed on the root window, each with every state of Caps Lock and Num Lock. They follow
/// a change of the keyboard layout. Option is the Alt key, Command the Super key.
class X11HotKeys : public HotKeys {
    Q_OBJECT
public:
    explicit X11HotKeys(QObject *parent = nullptr);

    /// Registering an identifier again replaces its chord. While the server is busy or out of reach
    /// the chord counts as free; it is grabbed when the server answers again.
    [[nodiscard]] bool registerChord(int identifier, Chord chord) override;

private:
    struct Registration {
        Chord chord;
        quint8 keycode = 0;
        quint16 modifiers = 0;
        bool isHeld = false;    ///< the server grants it to us
        quint32 releasedAt = 0; ///< server time of the last release
    };

    void handleEvent(const xcb_generic_event_t *event);
    void handlePress(const xcb_key_press_event_t &press);
    void handleRelease(const xcb_key_release_event_t &release);
    void followKeyboardChange();
    void grabAnew();
    [[nodiscard]] std::optional<KeyboardMap> readKeyboard();
    /// Nothing while it is not known.
    std::optional<bool> grab(Registration &registration);
    void release(Registration &registration);
    [[nodiscard]] QList<quint16> lockVariants() const;

    XcbConnection m_connection;
    KeyboardMap m_keyboard;
    QMap<int, Registration> m_registrations;
    QTimer m_keyboardChange;
};

} // namespace perchly
