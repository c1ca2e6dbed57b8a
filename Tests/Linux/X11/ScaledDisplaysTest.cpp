#include "ScreenSpace.h"
#include "X11Displays.h"
#include "X11PanelHost.h"
#include "X11PointerMonitor.h"
#include "XClient.h"

#include <QCursor>
#include <QProcess>
#include <QRasterWindow>
#include <QTest>
#include <xcb/shape.h>

using namespace perchly;

namespace {

void xrandr(const QStringList &arguments) {
    QCOMPARE(QProcess::execute(QStringLiteral("xrandr"), arguments), 0);
}

} // namespace

/// Two pixels make a point.
class ScaledDisplaysTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void displaysAndPointerAreInPoints();
    void thePanelIsPlacedAndShapedInPoints();
    void agreesWithTheToolkitOnEachDisplay();

private:
    XClient m_client;
};

void ScaledDisplaysTest::displaysAndPointerAreInPoints() {
    const X11Displays displays;
    QCOMPARE(displays.list().first().frame, (ScreenRect{0, 0, 640, 400}));
    QCOMPARE(displays.list().first().visibleFrame, (ScreenRect{0, 0, 640, 400}));
    m_client.movePointer({101, 50});
    QCOMPARE(X11PointerMonitor().position(), (ScreenPoint{50.5, 374.5}));
}

void ScaledDisplaysTest::thePanelIsPlacedAndShapedInPoints() {
    QRasterWindow panel;
    X11PanelHost host;
    host.attach(&panel);
    host.place({175, 366, 290, 34}, {20, 0, 20, 20});
    host.setShape(QRect(20, 0, 290, 34));
    host.orderFront();
    const auto id = static_cast<xcb_window_t>(panel.winId());
    QTRY_COMPARE(m_client.areaOf(id), QRect(310, 0, 660, 108));
    const XcbPointer<xcb_shape_query_extents_reply_t> extents(xcb_shape_query_extents_reply(
        m_client.get(), xcb_shape_query_extents(m_client.get(), id), nullptr));
    QCOMPARE(extents->bounding_shape_extents_x, qint16{40});
    QCOMPARE(extents->bounding_shape_extents_width, quint16{580});
    QCOMPARE(extents->bounding_shape_extents_height, quint16{68});
}

void ScaledDisplaysTest::agreesWithTheToolkitOnEachDisplay() {
    xrandr({QStringLiteral("--setmonitor"), QStringLiteral("Left"),
            QStringLiteral("640/170x800/210+0+0"), QStringLiteral("screen")});
    xrandr({QStringLiteral("--setmonitor"), QStringLiteral("Right"),
            QStringLiteral("640/170x600/160+640+200"), QStringLiteral("none")});
    QTRY_COMPARE(QGuiApplication::screens().size(), 2);
    const X11Displays displays;
    const X11PointerMonitor pointer;
    for (const QPoint pixels : {QPoint(10, 20), QPoint(630, 790), QPoint(650, 210),
                                QPoint(1270, 790), QPoint(900, 500)}) {
        m_client.movePointer(pixels);
        const ScreenPoint here = pointer.position();
        const ScreenPoint toolkit = ScreenSpace::current().fromToolkit(QPointF(QCursor::pos()));
        QVERIFY2(qAbs(here.x - toolkit.x) <= 1 && qAbs(here.y - toolkit.y) <= 1,
                 qPrintable(QStringLiteral("%1, %2 is not %3, %4")
                                .arg(here.x)
                                .arg(here.y)
                                .arg(toolkit.x)
                                .arg(toolkit.y)));
    }
    m_client.movePointer({650, 210});
    QVERIFY(displays.list().last().frame.contains(pointer.position()));
    QVERIFY(!displays.list().first().frame.contains(pointer.position()));
}

int main(int argc, char **argv) {
    qputenv("QT_SCALE_FACTOR", "2");
    QGuiApplication application(argc, argv);
    ScaledDisplaysTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "ScaledDisplaysTest.moc"
