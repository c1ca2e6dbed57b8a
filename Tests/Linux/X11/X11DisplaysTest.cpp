#include "X11Displays.h"
#include "XClient.h"

#include <QProcess>
#include <QSignalSpy>
#include <QTest>

using namespace perchly;

namespace {

const ScreenRect whole{0, 0, 1280, 800};

void xrandr(const QStringList &arguments) {
    QCOMPARE(QProcess::execute(QStringLiteral("xrandr"), arguments), 0);
}

} // namespace

class X11DisplaysTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void startsWithTheWholeDisplay();
    void reservesWhatADockReserves();
    void keepsSilentAboutOtherWindows();
    void knowsADockThatWasThereBefore();
    void eachDisplayHasItsOwnPanels();

private:
    xcb_window_t makeDock(const QRect &area, const QList<quint32> &partial) const {
        const xcb_window_t dock = m_client.makeWindow(area);
        m_client.setAtoms(dock, "_NET_WM_WINDOW_TYPE", {"_NET_WM_WINDOW_TYPE_DOCK"});
        m_client.setProperty(dock, "_NET_WM_STRUT_PARTIAL", XCB_ATOM_CARDINAL, partial);
        m_client.map(dock);
        return dock;
    }

    XClient m_client;
};

void X11DisplaysTest::startsWithTheWholeDisplay() {
    const X11Displays displays;
    const QList<perchly::Display> list = displays.list();
    QCOMPARE(list.size(), 1);
    QVERIFY(!list.first().name.isEmpty());
    QCOMPARE(list.first().frame, whole);
    QCOMPARE(list.first().visibleFrame, whole);
    QCOMPARE(list.first().safeAreaTop, 0);
    QVERIFY(!list.first().auxiliaryTopLeftArea);
}

void X11DisplaysTest::reservesWhatADockReserves() {
    const X11Displays displays;
    const QSignalSpy changed(&displays, &Displays::changed);
    const xcb_window_t dock = makeDock({0, 0, 1280, 28}, {0, 0, 28, 0, 0, 0, 0, 0, 0, 1279, 0, 0});
    QTRY_COMPARE(displays.list().first().visibleFrame, (ScreenRect{0, 0, 1280, 772}));
    QTRY_COMPARE(changed.count(), 1);

    m_client.setProperty(dock, "_NET_WM_STRUT_PARTIAL", XCB_ATOM_CARDINAL,
                         {0, 60, 0, 0, 0, 0, 0, 799, 0, 0, 0, 0});
    QTRY_COMPARE(displays.list().first().visibleFrame, (ScreenRect{0, 0, 1220, 800}));

    m_client.destroy(dock);
    QTRY_COMPARE(displays.list().first().visibleFrame, whole);
    QTRY_COMPARE(changed.count(), 3);
    QCOMPARE(displays.list().first().frame, whole);
}

void X11DisplaysTest::keepsSilentAboutOtherWindows() {
    const X11Displays displays;
    const QSignalSpy changed(&displays, &Displays::changed);
    const xcb_window_t window = m_client.makeWindow({10, 10, 200, 200});
    m_client.map(window);
    QTRY_VERIFY(m_client.isViewable(window));
    m_client.setProperty(window, "_NET_WM_STRUT_PARTIAL", XCB_ATOM_CARDINAL, QList<quint32>(12, 0));
    m_client.destroy(window);
    QTest::qWait(150);
    QCOMPARE(changed.count(), 0);
}

void X11DisplaysTest::knowsADockThatWasThereBefore() {
    const xcb_window_t dock = makeDock({0, 0, 40, 800}, {40, 0, 0, 0, 0, 799, 0, 0, 0, 0, 0, 0});
    QTRY_VERIFY(m_client.isViewable(dock));
    QTRY_COMPARE(X11Displays().list().first().visibleFrame, (ScreenRect{40, 0, 1240, 800}));
    m_client.destroy(dock);
}

void X11DisplaysTest::eachDisplayHasItsOwnPanels() {
    const X11Displays displays;
    const QSignalSpy changed(&displays, &Displays::changed);
    xrandr({QStringLiteral("--setmonitor"), QStringLiteral("Left"),
            QStringLiteral("640/170x800/210+0+0"), QStringLiteral("screen")});
    xrandr({QStringLiteral("--setmonitor"), QStringLiteral("Right"),
            QStringLiteral("640/170x600/160+640+0"), QStringLiteral("none")});
    QTRY_COMPARE(displays.list().size(), 2);
    QTRY_VERIFY(changed.count() > 0);

    const xcb_window_t dock =
        makeDock({640, 575, 640, 25}, {0, 0, 0, 225, 0, 0, 0, 0, 0, 0, 640, 1279});
    QTRY_COMPARE(displays.list().last().visibleFrame, (ScreenRect{640, 225, 640, 575}));
    QCOMPARE(displays.list().last().frame, (ScreenRect{640, 200, 640, 600}));
    QCOMPARE(displays.list().first().visibleFrame, (ScreenRect{0, 0, 640, 800}));

    m_client.destroy(dock);
    xrandr({QStringLiteral("--delmonitor"), QStringLiteral("Right")});
    xrandr({QStringLiteral("--delmonitor"), QStringLiteral("Left")});
    QTRY_COMPARE(displays.list().size(), 1);
    QTRY_COMPARE(displays.list().first().visibleFrame, whole);
}

QTEST_MAIN(X11DisplaysTest)
#include "X11DisplaysTest.moc"
