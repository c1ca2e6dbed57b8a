#include "ConnectWithTimeout.h"
#include "StrutWatcher.h"
#include "X11HotKeys.h"
#include "XClient.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>

#include <csignal>
#include <thread>

using namespace perchly;
using namespace std::chrono_literals;

namespace {

void tellServer(int signal) {
    ::kill(qEnvironmentVariableIntValue("PERCHLY_TEST_SERVER_PID"), signal);
}

} // namespace

/// Tests with a stopped X server.
class BusyServerTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void cleanup() { tellServer(SIGCONT); }

    void hotKeysWaitForAStalledServer() {
        X11HotKeys keys;
        tellServer(SIGSTOP);
        std::thread server([] {
            std::this_thread::sleep_for(150ms);
            tellServer(SIGCONT);
        });
        QVERIFY(keys.registerChord(1, Qt::ALT | Qt::Key_K));
        server.join();
    }

    void stoppedServerDelaysOnceAndStrutsAreKept() {
        const xcb_window_t panel = m_client.makeWindow({0, 0, 1280, 30});
        const auto reserve = [&](quint32 height) {
            m_client.setProperty(panel, "_NET_WM_STRUT", XCB_ATOM_CARDINAL, {0, 0, height, 0});
        };
        reserve(30);
        m_client.setProperty(m_client.root(), "_NET_CLIENT_LIST", XCB_ATOM_WINDOW, {panel});
        const StrutWatcher watcher;
        const QSignalSpy changed(&watcher, &StrutWatcher::changed);
        const QList<Strut> before = watcher.struts();
        QCOMPARE(before.size(), 1);
        XcbConnection connection;

        reserve(40);
        tellServer(SIGSTOP);
        QTest::qWait(600);
        QCOMPARE(watcher.struts(), before);
        QElapsedTimer elapsed;
        elapsed.start();
        for (int times = 0; times < 20; ++times) {
            QCOMPARE(connection.atom("PERCHLY_TEST"), xcb_atom_t{XCB_ATOM_NONE});
        }
        QVERIFY(!connectWithTimeout(200ms));
        QVERIFY(elapsed.elapsed() < 2000);
        tellServer(SIGCONT);
        QTRY_COMPARE(changed.count(), 1);
        QCOMPARE(watcher.struts().size(), 1);
        QVERIFY(watcher.struts() != before);
        QTRY_VERIFY(connection.atom("PERCHLY_TEST") != XCB_ATOM_NONE);
        QVERIFY(connectWithTimeout());
    }

    void eventsReadWithAReplyAreEmitted() {
        XcbConnection connection;
        int events = 0;
        connect(&connection, &XcbConnection::eventArrived, this, [&] { ++events; });
        connection.selectEvents(connection.root(), XCB_EVENT_MASK_PROPERTY_CHANGE);
        const xcb_atom_t atom = connection.atom("PERCHLY_TEST");
        m_client.setProperty(m_client.root(), "PERCHLY_TEST", XCB_ATOM_CARDINAL, {1});
        // The reply arrives after the event.
        QCOMPARE(connection.property(connection.root(), atom), QList<quint32>{1});
        QCOMPARE(events, 0);
        QTRY_COMPARE(events, 1);
    }

private:
    XClient m_client;
};

QTEST_GUILESS_MAIN(BusyServerTest)
#include "BusyServerTest.moc"
