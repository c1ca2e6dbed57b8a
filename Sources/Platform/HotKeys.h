#pragma once

#include <QKeyCombination>
#include <QObject>

namespace perchly {

/// Chords that reach the program whichever window has the keyboard. Destroying the object releases
/// them. Main thread only.
class HotKeys : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    /// Grabs the chord, in any state of the lock keys, instead of the identifier's earlier one.
    /// False if it is not available, for example because another program has grabbed it. Nothing
    /// announces that it has become available.
    [[nodiscard]] virtual bool registerChord(int identifier, QKeyCombination chord) = 0;

    /// Releases the identifier's chord, if any.
    virtual void releaseChord(int identifier) = 0;

    /// While on, our window with the keyboard also gets the chords that other programs have
    /// grabbed.
    virtual void setKeyboardGrabbed(bool on) = 0;

    /// False where programs cannot register chords, only the user in the desktop's settings.
    [[nodiscard]] virtual bool isSupported() const { return true; }

Q_SIGNALS:
    /// The chord was pressed; key repeats are not reported.
    void pressed(int identifier);

    /// Register all chords again: the keyboard layout changed, or the desktop refused them.
    void keyboardChanged();
};

} // namespace perchly
