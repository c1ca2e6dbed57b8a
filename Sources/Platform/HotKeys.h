#pragma once

#include "KeyPress.h"

#include <QObject>

namespace perchly {

/// Chords that reach the program whichever window has the keyboard. They are released with the
/// object. Main thread only.
class HotKeys : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    /// Takes the chord for the program under that identifier, whatever the lock keys say. False
    /// when it cannot be had, for example because another program holds it.
    [[nodiscard]] virtual bool registerChord(int identifier, Chord chord) = 0;

Q_SIGNALS:
    /// The chord was pressed; key repeat is not reported.
    void pressed(int identifier);
};

} // namespace perchly
