#include "X11HotKeys.h"
#include "XClient.h"

#include <QProcess>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace perchly;

namespace {

constexpr quint8 kKey = 45;
constexpr quint8 kKeyOnDvorak = 55;
constexpr quint8 spaceKey = 65;
constexpr quint8 capsLockKey = 66;
constexpr quint8 numLockKey = 77;
constexpr quint8 shiftKey = 50;
constexpr quint8 superKey = 133;

const Chord controlOptionK{Qt::Key_K, Modifier::Control | Modifier::Option};
const Chord controlOptionSpace{Qt::Key_Space, Modifier::Control | Modifier::Option};

void setLayout(const QStringList &arguments) {
    QCOMPARE(QProcess::execute(QStringLiteral("setxkbmap"), arguments), 0);
}

} // namespace

class X11HotKeysTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { setLayout({QStringLiteral("us"), QStringLiteral("-option"), QString()}); }
    void tellsThePressedChord();
    void locksDoNotMatter_data();
    void locksDoNotMatter();
    void otherModifiersDoMatter();
    void anotherProgramsChordIsRefused();
    void aHeldKeyIsToldOnce();
    void releasesItsChords();
    void followsTheLayout();
    void worksInALayoutWithoutTheLetter();
    void worksWhileTheSecondLayoutIsOn();

private:
    // Whatever was sent has been told when this returns.
    void settle() const {
        m_person.sync();
        QTest::qWait(50);
    }

    XClient m_person;
};

void X11HotKeysTest::tellsThePressedChord() {
    X11HotKeys keys;
    QSignalSpy pressed(&keys, &HotKeys::pressed);
    QVERIFY(keys.registerChord(1, controlOptionSpace));
    QVERIFY(keys.registerChord(2, controlOptionK));
    QVERIFY(keys.registerChord(3, {Qt::Key_F9, Modifier::Command}));
    m_person.typeChord(kKey);
    m_person.typeChord(spaceKey);
    m_person.typeChord(spaceKey);
    m_person.pressKey(superKey);
    m_person.typeKey(75);
    m_person.releaseKey(superKey);
    settle();
    QCOMPARE(pressed, (QList<QVariantList>{{2}, {1}, {1}, {3}}));
}

void X11HotKeysTest::locksDoNotMatter_data() {
    QTest::addColumn<QList<int>>("locks");
    QTest::newRow("with Caps Lock") << QList<int>{capsLockKey};
    QTest::newRow("with Num Lock") << QList<int>{numLockKey};
    QTest::newRow("with both") << QList<int>{capsLockKey, numLockKey};
}

void X11HotKeysTest::locksDoNotMatter() {
    QFETCH(QList<int>, locks);
    X11HotKeys keys;
    const QSignalSpy pressed(&keys, &HotKeys::pressed);
    QVERIFY(keys.registerChord(1, controlOptionSpace));
    for (const int key : locks)
        m_person.typeKey(static_cast<quint8>(key));
    m_person.typeChord(spaceKey);
    for (const int key : locks)
        m_person.typeKey(static_cast<quint8>(key));
    settle();
    QCOMPARE(pressed.count(), 1);
}

void X11HotKeysTest::otherModifiersDoMatter() {
    X11HotKeys keys;
    const QSignalSpy pressed(&keys, &HotKeys::pressed);
    QVERIFY(keys.registerChord(1, controlOptionSpace));
    m_person.pressKey(shiftKey);
    m_person.typeChord(spaceKey);
    m_person.releaseKey(shiftKey);
    m_person.typeKey(spaceKey);
    settle();
    QCOMPARE(pressed.count(), 0);
}

void X11HotKeysTest::anotherProgramsChordIsRefused() {
    auto other = std::make_unique<XClient>();
    // It holds the chord only as typed with Caps Lock; the rest must not stay with us.
    xcb_grab_key(other->get(), 1, other->root(),
                 XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1 | XCB_MOD_MASK_LOCK, spaceKey,
                 XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    other->sync();

    X11HotKeys keys;
    const QSignalSpy pressed(&keys, &HotKeys::pressed);
    QVERIFY(!keys.registerChord(1, controlOptionSpace));
    QVERIFY(keys.registerChord(2, controlOptionK));
    X11HotKeys third;
    QVERIFY(third.registerChord(1, {Qt::Key_Space, Modifier::Control | Modifier::Command}));
    const auto plain = xcb_grab_key_checked(m_person.get(), 1, m_person.root(),
                                            XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1, spaceKey,
                                            XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    const XcbPointer<xcb_generic_error_t> error(xcb_request_check(m_person.get(), plain));
    QVERIFY(!error);
    xcb_ungrab_key(m_person.get(), spaceKey, m_person.root(), XCB_MOD_MASK_ANY);
    m_person.sync();

    other.reset();
    QTRY_VERIFY(keys.registerChord(1, controlOptionSpace));
    m_person.typeChord(spaceKey);
    settle();
    QCOMPARE(pressed.count(), 1);
}

void X11HotKeysTest::aHeldKeyIsToldOnce() {
    const auto holdChord = [this] {
        m_person.pressChord(spaceKey);
        QTest::qWait(1200);
        m_person.releaseChord(spaceKey);
    };
    XClient other;
    const xcb_window_t window = other.makeWindow({0, 0, 50, 50}, XClient::Managed::No);
    other.map(window);
    other.focus(window);
    holdChord();
    QVERIFY2(other.countEvents(XCB_KEY_PRESS, window) > 6, "the server repeats held keys");

    X11HotKeys keys;
    const QSignalSpy pressed(&keys, &HotKeys::pressed);
    QVERIFY(keys.registerChord(1, controlOptionSpace));
    holdChord();
    m_person.typeChord(spaceKey);
    settle();
    QCOMPARE(pressed.count(), 2);
}

void X11HotKeysTest::releasesItsChords() {
    auto first = std::make_unique<X11HotKeys>();
    X11HotKeys second;
    QVERIFY(first->registerChord(1, controlOptionSpace));
    QVERIFY(!second.registerChord(1, controlOptionSpace));
    // Replaced, the old chord is free.
    QVERIFY(first->registerChord(1, controlOptionK));
    QVERIFY(second.registerChord(1, controlOptionSpace));
    first.reset();
    QTRY_VERIFY(second.registerChord(2, controlOptionK));
}

void X11HotKeysTest::followsTheLayout() {
    X11HotKeys keys;
    const QSignalSpy pressed(&keys, &HotKeys::pressed);
    QVERIFY(keys.registerChord(1, controlOptionK));
    setLayout({QStringLiteral("us"), QStringLiteral("-variant"), QStringLiteral("dvorak")});
    QTest::qWait(200);
    m_person.typeChord(kKey);
    settle();
    QCOMPARE(pressed.count(), 0);
    m_person.typeChord(kKeyOnDvorak);
    settle();
    QCOMPARE(pressed.count(), 1);
}

void X11HotKeysTest::worksInALayoutWithoutTheLetter() {
    setLayout({QStringLiteral("ru")});
    X11HotKeys keys;
    const QSignalSpy pressed(&keys, &HotKeys::pressed);
    QVERIFY(keys.registerChord(1, controlOptionK));
    m_person.typeChord(kKey);
    settle();
    QCOMPARE(pressed.count(), 1);
}

void X11HotKeysTest::worksWhileTheSecondLayoutIsOn() {
    setLayout(
        {QStringLiteral("us,ru"), QStringLiteral("-option"), QStringLiteral("grp:caps_toggle")});
    X11HotKeys keys;
    const QSignalSpy pressed(&keys, &HotKeys::pressed);
    QVERIFY(keys.registerChord(1, controlOptionK));
    m_person.typeKey(capsLockKey);
    m_person.typeChord(kKey);
    m_person.typeKey(capsLockKey);
    settle();
    QCOMPARE(pressed.count(), 1);
}

QTEST_MAIN(X11HotKeysTest)
#include "X11HotKeysTest.moc"
