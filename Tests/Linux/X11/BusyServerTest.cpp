#include "CompositorWatch.h"
#include "OwnServer.h"
#include "StrutWatcher.h"
#include "X11PointerMonitor.h"
#include "XClient.h"

#include <QSignalSpy>
#include <QTest>

#include <optional>

using namespace perchly;

/// The server stops for longer than anybody waits and then goes on.
class BusyServerTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() {
        m_server.emplace();
        qputenv("DISPLAY", m_server->name());
        m_client.emplace();
    }

    void cleanup() {
        m_server->signal("-CONT");
        m_client.reset();
        m_server.reset();
    }

    void thePointerIsFollowedByItsMotion() {
        X11PointerMonitor monitor;
        const QSignalSpy moved(&monitor, &PointerMonitor::moved);
        m_server->signal("-STOP");
        monitor.start();
        QTest::qWait(300);
        m_server->signal("-CONT");
        QTest::qWait(1000);
        m_client->movePointer({300, 200});
        QTRY_COMPARE(moved.count(), 1);
        // Only a look from time to time would see this.
        xcb_warp_pointer(m_client->get(), XCB_NONE, m_client->root(), 0, 0, 0, 0, 10, 10);
        m_client->sync();
        QTest::qWait(600);
        QCOMPARE(moved.count(), 1);
    }

    void aCompositorIsNoticedLater() {
        XcbConnection connection;
        m_server->signal("-STOP");
        const CompositorWatch watch(connection);
        m_server->signal("-CONT");
        QTest::qWait(1000);
        QVERIFY(!watch.isRunning());
        const xcb_window_t owner = m_client->makeWindow({0, 0, 1, 1});
        xcb_set_selection_owner(m_client->get(), owner, m_client->atom("_NET_WM_CM_S0"),
                                XCB_CURRENT_TIME);
        m_client->sync();
        QTRY_VERIFY(watch.isRunning());
    }

    void strutsAreKeptAndReadAgain() {
        const xcb_window_t panel = m_client->makeWindow({0, 0, 1280, 30});
        const auto reserve = [&](quint32 height) {
            m_client->setProperty(panel, "_NET_WM_STRUT", XCB_ATOM_CARDINAL, {0, 0, height, 0});
        };
        const auto list = [&](const QList<quint32> &windows) {
            m_client->setProperty(m_client->root(), "_NET_CLIENT_LIST", XCB_ATOM_WINDOW, windows);
        };
        reserve(30);
        list({panel});
        const StrutWatcher watcher;
        const QSignalSpy changed(&watcher, &StrutWatcher::changed);
        const QList<Strut> before = watcher.struts();
        QCOMPARE(before.size(), 1);

        list({panel, panel}); // to be read when the server no longer answers
        reserve(40);
        m_server->signal("-STOP");
        QTest::qWait(600);
        QCOMPARE(watcher.struts(), before);
        QCOMPARE(changed.count(), 0);
        m_server->signal("-CONT");
        QTRY_COMPARE(changed.count(), 1);
        QCOMPARE(watcher.struts().size(), 1);
        QVERIFY(watcher.struts() != before);
    }

private:
    std::optional<OwnServer> m_server;
    std::optional<XClient> m_client;
};

QTEST_GUILESS_MAIN(BusyServerTest)
#include "BusyServerTest.moc"
