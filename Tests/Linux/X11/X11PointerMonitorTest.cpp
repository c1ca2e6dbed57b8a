#include "X11PointerMonitor.h"
#include "XClient.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>

using namespace perchly;

class X11PointerMonitorTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { m_client.movePointer({600, 400}); }

    void movementsAreThrottledExceptTheLastAndReleases() {
        X11PointerMonitor monitor;
        ScreenPoint last;
        int told = 0;
        connect(&monitor, &PointerMonitor::moved, this, [&](ScreenPoint position) {
            ++told;
            last = position;
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
        told = 0;
        monitor.watch(PointerMonitor::Watch::Releases);
        QVERIFY(!monitor.isButtonHeld()); // waits until the server reports releases
        m_client.pressButton();
        m_client.releaseButton();
        QTRY_COMPARE(told, 1);
    }

    void movementIsAnnouncedOnceTheServerAnswers() {
        X11PointerMonitor monitor;
        ScreenPoint last;
        connect(&monitor, &PointerMonitor::moved, this, [&](ScreenPoint now) { last = now; });
        monitor.start();
        static_cast<void>(monitor.position()); // the server has read the request
        xcb_grab_server(m_client.get());
        m_client.movePointer({1000, 100});
        QTest::qWait(700);
        xcb_ungrab_server(m_client.get());
        m_client.sync();
        QTRY_COMPARE(last, (ScreenPoint{1000, 699}));
    }

    void jumpsAreReportedOnlyOnRequest() {
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

        QCOMPARE(monitor.position(), (ScreenPoint{10, 789}));
        monitor.watch(X11PointerMonitor::Watch::Jumps);
        QTest::qWait(600);
        QCOMPARE(moved.count(), 0);
        jump(20, 10);
        QTRY_COMPARE(moved.count(), 1);
        monitor.watch(X11PointerMonitor::Watch::Nothing);
        QCOMPARE(monitor.position(), (ScreenPoint{20, 789})); // the server has read the request
        m_client.movePointer({600, 400});
        QTest::qWait(300);
        QCOMPARE(moved.count(), 1);
    }

private:
    XClient m_client;
};

QTEST_MAIN(X11PointerMonitorTest)
#include "X11PointerMonitorTest.moc"
