#include "X11PointerMonitor.h"
#include "XClient.h"

#include <QSignalSpy>
#include <QTest>

using namespace perchly;

class X11PointerMonitorTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { m_client.movePointer({600, 400}); }

    void tellsWhereThePointerIsEvenDuringAGrab() {
        X11PointerMonitor monitor;
        const QSignalSpy moved(&monitor, &PointerMonitor::moved);
        monitor.start();
        QTest::qWait(50);
        QCOMPARE(moved.count(), 0);
        XClient holder;
        const auto cookie = xcb_grab_pointer(
            holder.get(), 0, holder.root(), XCB_EVENT_MASK_POINTER_MOTION, XCB_GRAB_MODE_ASYNC,
            XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, XCB_CURRENT_TIME);
        const XcbPointer<xcb_grab_pointer_reply_t> grab(
            xcb_grab_pointer_reply(holder.get(), cookie, nullptr));
        QVERIFY(grab && grab->status == XCB_GRAB_STATUS_SUCCESS);

        m_client.movePointer({100, 50});
        QTRY_VERIFY(moved.count() > 0);
        QCOMPARE(monitor.position(), (ScreenPoint{100, 749}));
        m_client.movePointer({1279, 799});
        QCOMPARE(monitor.position(), (ScreenPoint{1279, 0}));
    }

    void tellsAFloodOfMovementsInFewAndTheLast() {
        X11PointerMonitor monitor;
        ScreenPoint last;
        int told = 0;
        connect(&monitor, &PointerMonitor::moved, this, [&] {
            ++told;
            last = monitor.position();
        });
        monitor.start();
        QElapsedTimer elapsed;
        elapsed.start();
        for (int i = 0; i < 600; ++i) {
            m_client.movePointer({300 + i, 200 + i % 7});
            QCoreApplication::processEvents();
        }
        m_client.movePointer({1000, 100});
        const qint64 duration = elapsed.elapsed();
        QTRY_COMPARE(last, (ScreenPoint{1000, 699}));
        QVERIFY2(told <= duration / 12 + 4, qPrintable(QString::number(told)));

        QTest::qWait(50);
        const int atRest = told;
        QTest::qWait(100);
        QCOMPARE(told, atRest);
    }

    void seesJumpsOnlyWhilePolling() {
        X11PointerMonitor monitor;
        const QSignalSpy moved(&monitor, &PointerMonitor::moved);
        monitor.start();
        const auto jump = [&](qint16 x, qint16 y) {
            xcb_warp_pointer(m_client.get(), XCB_NONE, m_client.root(), 0, 0, 0, 0, x, y);
            m_client.sync();
        };
        jump(10, 10);
        QTest::qWait(300);
        QCOMPARE(moved.count(), 0);

        monitor.setPolling(true);
        QTest::qWait(600);
        QCOMPARE(moved.count(), 0);
        jump(20, 10);
        QTRY_COMPARE(moved.count(), 1);
        QCOMPARE(monitor.position(), (ScreenPoint{20, 789}));

        monitor.setPolling(false);
        jump(30, 10);
        QTest::qWait(400);
        QCOMPARE(moved.count(), 1);
    }

private:
    XClient m_client;
};

QTEST_MAIN(X11PointerMonitorTest)
#include "X11PointerMonitorTest.moc"
