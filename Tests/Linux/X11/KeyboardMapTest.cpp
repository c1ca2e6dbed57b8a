#include "KeyboardMap.h"

#include <QTest>
#include <X11/keysym.h>
#include <xcb/xproto.h>

using namespace perchly;

namespace {

// Two layouts of two levels each; keycode 45 writes k in the layout asked for.
KeyboardMap keyboard(quint32 first, quint32 second) {
    KeyboardMap map{.firstKeycode = 8, .keysymsPerKeycode = 4, .keysyms = QList<quint32>(248 * 4)};
    const auto set = [&](int keycode, quint32 inFirst, quint32 inSecond = 0) {
        map.keysyms[(keycode - 8) * 4] = inFirst;
        map.keysyms[(keycode - 8) * 4 + 2] = inSecond;
    };
    set(45, first, second);
    set(65, XK_space);
    set(64, XK_Alt_L);
    set(77, XK_Num_Lock);
    set(133, XK_Super_L);
    map.keycodesPerModifier = 2;
    map.modifierKeycodes = {50, 62, 66, 0, 37, 105, 64, 0, 77, 0, 0, 0, 0, 133, 0, 0};
    return map;
}

} // namespace

class KeyboardMapTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void findsTheKey() {
        const auto keycode = [](quint32 first, quint32 second, Qt::Key key) {
            const auto found = keyboard(first, second).keycodeFor(key);
            return found ? int{*found} : -1;
        };
        QCOMPARE(keycode(XK_k, XK_Cyrillic_el, Qt::Key_K), 45);
        QCOMPARE(keycode(XK_Cyrillic_el, XK_k, Qt::Key_K), 45);
        // Where it would stand, when no layout has it; a digit that only a shifted key writes.
        QCOMPARE(keycode(XK_Cyrillic_el, 0, Qt::Key_K), 45);
        QCOMPARE(keycode(XK_k, 0, Qt::Key_0), 19);
        // Another letter's place on a rearranged keyboard; what no keyboard has.
        QCOMPARE(keycode(XK_t, 0, Qt::Key_T), 45);
        QCOMPARE(keycode(XK_k, 0, Qt::Key_Dead_Grave), -1);
    }

    void modifiersFollowTheMapping() {
        KeyboardMap map = keyboard(XK_k, 0);
        QCOMPARE(map.numLockMask(), quint16{XCB_MOD_MASK_2});
        QCOMPARE(map.maskFor(Modifier::Control | Modifier::Option),
                 quint16{XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1});
        QCOMPARE(map.maskFor(Modifier::Shift | Modifier::Command),
                 quint16{XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_4});

        // Alt and Super change places, Num Lock goes.
        map.modifierKeycodes = {50, 62, 66, 0, 37, 105, 133, 0, 0, 0, 0, 0, 64, 0, 0, 0};
        QCOMPARE(map.numLockMask(), quint16{0});
        QCOMPARE(map.maskFor(Modifier::Option), quint16{XCB_MOD_MASK_4});
        QCOMPARE(map.maskFor(Modifier::Command), quint16{XCB_MOD_MASK_1});

        // Nothing known: the usual places.
        QCOMPARE(KeyboardMap{}.maskFor(Modifier::Option), quint16{XCB_MOD_MASK_1});
    }
};

QTEST_GUILESS_MAIN(KeyboardMapTest)
#include "KeyboardMapTest.moc"
