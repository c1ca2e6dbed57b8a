#pragma once

#include "KeyPress.h"

#include <QObject>

namespace perchly {

/// Chords that reach the program whichever window has the keyboard. Destroying the object releases
/// them. Main thread only.
class HotKeys : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    /// Grabs the chord, in any state of the lock keys. Call it once per identifier. False if the
    /// chord is not available, for example because another program has grabbed it.
    [[nodiscard]] virtual bool registerChord(int identifier, Chord chord) = 0;

Q_SIGNALS:
    /// The chord was pressed; key repeats are not reported.
    void pressed(int identifier);
};

} // namespace perchly
