#include "KeyTranslation.h"

#include <QKeyEvent>

namespace perchly {

namespace {

// X keycodes of the digit row, from 1 to 9 and then 0.
constexpr quint32 firstDigitKey = 10;
constexpr quint32 lastDigitKey = 19;

QString charactersWithoutModifiers(const QKeyEvent &event) {
    const quint32 physical = event.nativeScanCode();
    if (physical >= firstDigitKey && physical <= lastDigitKey) {
        return QString::number((physical - firstDigitKey + 1) % 10);
    }
    // Printing keys carry their character as it is written with Shift; others lie far above.
    if (event.key() < Qt::Key_Space || event.key() >= Qt::Key_Escape) {
        return {};
    }
    const auto character = static_cast<char32_t>(event.key());
    return QString::fromUcs4(&character, 1).toLower();
}

} // namespace

KeyPress keyPressFromQt(const QKeyEvent &event) {
    const Qt::KeyboardModifiers held = event.modifiers();
    Modifiers modifiers;
    modifiers.setFlag(Modifier::Shift, held.testFlag(Qt::ShiftModifier));
    modifiers.setFlag(Modifier::Control, held.testFlag(Qt::ControlModifier));
    modifiers.setFlag(Modifier::Option, held.testFlag(Qt::AltModifier));
    const bool isControlAlone =
        held.testFlag(Qt::ControlModifier) && !held.testFlag(Qt::AltModifier);
    modifiers.setFlag(Modifier::Command, held.testFlag(Qt::MetaModifier) || isControlAlone);
    return {.key = static_cast<Qt::Key>(event.key()),
            .modifiers = modifiers,
            .charactersIgnoringModifiers = charactersWithoutModifiers(event),
            .isRepeat = event.isAutoRepeat()};
}

} // namespace perchly
