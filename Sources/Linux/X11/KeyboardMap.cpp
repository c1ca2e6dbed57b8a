#include "KeyboardMap.h"

#include <QHash>
#include <X11/keysym.h>
#include <xcb/xproto.h>

namespace perchly {

namespace {

constexpr quint32 noKeysym = 0;

quint32 keysymOf(Qt::Key key) {
    if (key >= Qt::Key_A && key <= Qt::Key_Z) {
        return static_cast<quint32>(key - Qt::Key_A) + XK_a;
    }
    // Latin-1 keysyms are the characters themselves.
    if (key >= Qt::Key_Space && key <= Qt::Key_ydiaeresis) {
        return static_cast<quint32>(key);
    }
    if (key >= Qt::Key_F1 && key <= Qt::Key_F35) {
        return static_cast<quint32>(key - Qt::Key_F1) + XK_F1;
    }
    static const QHash<Qt::Key, quint32> named{{Qt::Key_Escape, XK_Escape},
                                               {Qt::Key_Tab, XK_Tab},
                                               {Qt::Key_Return, XK_Return},
                                               {Qt::Key_Enter, XK_KP_Enter},
                                               {Qt::Key_Backspace, XK_BackSpace},
                                               {Qt::Key_Delete, XK_Delete},
                                               {Qt::Key_Insert, XK_Insert},
                                               {Qt::Key_Home, XK_Home},
                                               {Qt::Key_End, XK_End},
                                               {Qt::Key_PageUp, XK_Page_Up},
                                               {Qt::Key_PageDown, XK_Page_Down},
                                               {Qt::Key_Up, XK_Up},
                                               {Qt::Key_Down, XK_Down},
                                               {Qt::Key_Left, XK_Left},
                                               {Qt::Key_Right, XK_Right},
                                               {Qt::Key_Print, XK_Print},
                                               {Qt::Key_Pause, XK_Pause}};
    return named.value(key, noKeysym);
}

// Rows of a keyboard with Latin letters; keycodes are the same on all of Linux.
std::optional<quint8> physicalKey(Qt::Key key) {
    struct Row {
        quint8 first = 0;
        QLatin1StringView keys;
    };
    static constexpr Row rows[] = {{10, QLatin1StringView("1234567890")},
                                   {24, QLatin1StringView("QWERTYUIOP")},
                                   {38, QLatin1StringView("ASDFGHJKL")},
                                   {52, QLatin1StringView("ZXCVBNM")},
                                   {65, QLatin1StringView(" ")}};
    if (key > Qt::Key_Z) {
        return std::nullopt;
    }
    for (const Row &row : rows) {
        const qsizetype place = row.keys.indexOf(QLatin1Char(static_cast<char>(key)));
        if (place >= 0) {
            return static_cast<quint8>(row.first + place);
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<quint8> KeyboardMap::keycodeFor(Qt::Key key) const {
    const quint32 keysym = keysymOf(key);
    if (keysym == noKeysym) {
        return std::nullopt;
    }
    const auto found = keycodeOf(keysym);
    return found ? found : physicalKey(key);
}

// Even columns are the unshifted levels of the layouts.
std::optional<quint8> KeyboardMap::keycodeOf(quint32 keysym) const {
    for (int column = 0; column < keysymsPerKeycode; column += 2) {
        for (qsizetype at = column, code = firstKeycode; at < keysyms.size();
             at += keysymsPerKeycode, ++code) {
            if (keysyms[at] == keysym) {
                return static_cast<quint8>(code);
            }
        }
    }
    return std::nullopt;
}

quint16 KeyboardMap::maskFor(Modifiers modifiers) const {
    const auto either = [](quint16 found, quint16 usual) { return found ? found : usual; };
    quint16 mask = 0;
    if (modifiers.testFlag(Modifier::Shift)) {
        mask |= XCB_MOD_MASK_SHIFT;
    }
    if (modifiers.testFlag(Modifier::Control)) {
        mask |= XCB_MOD_MASK_CONTROL;
    }
    if (modifiers.testFlag(Modifier::Option)) {
        mask |= either(modifierWith(XK_Alt_L), XCB_MOD_MASK_1);
    }
    if (modifiers.testFlag(Modifier::Command)) {
        mask |= either(modifierWith(XK_Super_L), XCB_MOD_MASK_4);
    }
    return mask;
}

quint16 KeyboardMap::numLockMask() const {
    return modifierWith(XK_Num_Lock);
}

quint16 KeyboardMap::modifierWith(quint32 keysym) const {
    for (qsizetype i = 0; i < modifierKeycodes.size(); ++i) {
        if (modifierKeycodes[i] == 0) {
            continue;
        }
        const qsizetype start = (modifierKeycodes[i] - firstKeycode) * keysymsPerKeycode;
        for (qsizetype at = start; at < start + keysymsPerKeycode; ++at) {
            if (at >= 0 && at < keysyms.size() && keysyms[at] == keysym) {
                return static_cast<quint16>(1U << (i / keycodesPerModifier));
            }
        }
    }
    return 0;
}

} // namespace perchly
