#include "X11HotKeys.h"
#include "OwnServer.h"

#include <QTest>
#include <X11/keysym.h>

#include <optional>

using namespace perchly;

namespace {

const Chord chord{.key = Qt::Key_Space, .modifiers = Modifier::Control | Modifier::Option};

constexpr quint8 spaceKey = 65;
constexpr quint8 pauseKey = 127;

/// Whether another program may not have the chord.
bool isTaken(XcbConnection &other, quint8 keycode = spaceKey) {
    constexpr quint16 modifiers = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1;
    const bool refused =
        other.succeeded({xcb_grab_key_checked(other.get(), 1, other.root(), modifiers, keycode,
                                              XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC)}) == false;
    xcb_ungrab_key(other.get(), keycode, other.root(), modifiers);
    other.flush();
    return refused;
}

} // namespace

class X11HotKeysTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aBusyServerGrantsTheChordLater_data() {
        QTest::addColumn<bool>("alreadyAtFirst");
        QTest::newRow("busy from the start") << true;
        QTest::newRow("busy as the chord is asked for") << false;
    }

    void aBusyServerGrantsTheChordLater() {
        QFETCH(bool, alreadyAtFirst);
        const OwnServer server;
        qputenv("DISPLAY", server.name());
        XcbConnection other;
        std::optional<X11HotKeys> keys;
        if (!alreadyAtFirst) {
            keys.emplace();
        }
        server.signal("-STOP");
        if (alreadyAtFirst) {
            keys.emplace();
        }
        QVERIFY(keys->registerChord(1, chord));
        server.signal("-CONT");
        QTRY_VERIFY(isTaken(other));
        QTest::qWait(1500); // also when it was asked once more
        QVERIFY(isTaken(other));
        QVERIFY(!keys->registerChord(2, {.key = Qt::Key_F35, .modifiers = {}}));
    }

    void aBusyServerTellsOfANewLayoutLater() {
        const OwnServer server;
        qputenv("DISPLAY", server.name());
        XcbConnection other;
        X11HotKeys keys;
        QVERIFY(keys.registerChord(1, chord));
        QVERIFY(isTaken(other));
        const auto assign = [&](quint8 keycode, xcb_keysym_t keysym) {
            xcb_change_keyboard_mapping(other.get(), 1, keycode, 1, &keysym);
            QVERIFY(other.succeeded({}));
        };
        assign(spaceKey, XK_a);
        assign(pauseKey, XK_space);
        server.signal("-STOP");
        QTest::qWait(500);
        server.signal("-CONT");
        QTRY_VERIFY(isTaken(other, pauseKey));
        QVERIFY(!isTaken(other));
    }
};

QTEST_GUILESS_MAIN(X11HotKeysTest)
#include "X11HotKeysTest.moc"
