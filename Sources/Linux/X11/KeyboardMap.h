#pragma once

#include "KeyPress.h"

#include <QList>

#include <optional>

namespace perchly {

/// The X server's tables of what the keys write and which of them are modifiers, and what follows
/// from them for grabbing a chord.
struct KeyboardMap {
    int firstKeycode = 8;
    int keysymsPerKeycode = 1;
    QList<quint32> keysyms = {}; ///< keysymsPerKeycode for each keycode from the first on

    int keycodesPerModifier = 0;
    QList<quint8> modifierKeycodes = {}; ///< for Shift, Lock, Control, Mod1 … Mod5; 0 for none

    /// The key that writes this without modifiers in the first layout, else in another one. When no
    /// layout has it, the key that stands there on a keyboard with Latin letters.
    [[nodiscard]] std::optional<quint8> keycodeFor(Qt::Key key) const;

    /// X modifier bits of the program's modifiers.
    [[nodiscard]] quint16 maskFor(Modifiers modifiers) const;

    /// The bit of Num Lock, 0 without one.
    [[nodiscard]] quint16 numLockMask() const;

    bool operator==(const KeyboardMap &) const = default;

private:
    quint16 modifierWith(quint32 keysym) const;
    std::optional<quint8> keycodeOf(quint32 keysym) const;
};

} // namespace perchly
