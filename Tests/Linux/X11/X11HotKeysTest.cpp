#include "X11HotKeys.h"
#include "OwnServer.h"

#include <QTest>

#include <optional>

using namespace perchly;

namespace {

const Chord chord{.key = Qt::Key_Space, .modifiers = Modifier::Control | Modifier::Option};

/// Whether another program may not have the chord.
bool isTaken(XcbConnection &other) {
    constexpr quint8 space = 65;
    constexpr quint16 modifiers = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1;
    const bool refused =
        other.succeeded({xcb_grab_key_checked(other.get(), 1, other.root(), modifiers, space,
                                              XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC)}) == false;
    xcb_ungrab_key(other.get(), space, other.root(), modifiers);
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
};

QTEST_GUILESS_MAIN(X11HotKeysTest)
#include "X11HotKeysTest.moc"
