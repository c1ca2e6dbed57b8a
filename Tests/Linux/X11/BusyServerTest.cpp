#include "CompositorWatch.h"
#include "ConnectWithTimeout.h"
#include "OwnServer.h"
#include "StrutWatcher.h"
#include "X11HotKeys.h"
#include "X11PointerMonitor.h"
#include "XClient.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>

#include <netinet/in.h>
#include <optional>
#include <sys/socket.h>
#include <unistd.h>

using namespace perchly;
using namespace std::chrono_literals;

/// The server stalls or never answers.
class BusyServerTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() {
        m_server.emplace();
        m_client.emplace();
    }

    void cleanup() {
        m_server->goOn();
        m_client.reset();
        m_server.reset();
    }

    void hostsWaitForAStalledServer() {
        XcbConnection connection;
        X11HotKeys keys;
        X11PointerMonitor monitor;
        const QSignalSpy moved(&monitor, &PointerMonitor::moved);
        m_server->stall(150ms);
        QVERIFY(keys.registerChord(1, {.key = Qt::Key_K, .modifiers = Modifier::Option}));
        m_server->stall(150ms);
        monitor.start();
        m_server->stall(150ms);
        const CompositorWatch watch(connection);

        m_client->movePointer({300, 200});
        QTRY_COMPARE(moved.count(), 1);
        const xcb_window_t owner = m_client->makeWindow({0, 0, 1, 1});
        xcb_set_selection_owner(m_client->get(), owner, m_client->atom("_NET_WM_CM_S0"),
                                XCB_CURRENT_TIME);
        m_client->sync();
        QTRY_VERIFY(watch.isRunning());
        const QSignalSpy pressed(&keys, &HotKeys::pressed);
        constexpr quint8 altKey = 64;
        constexpr quint8 kKey = 45;
        m_client->pressKey(altKey);
        m_client->pressKey(kKey);
        m_client->releaseKey(kKey);
        m_client->releaseKey(altKey);
        QTRY_COMPARE(pressed.count(), 1);
    }

    void stoppedServerDelaysOnceAndKeepsTheStruts() {
        const xcb_window_t panel = m_client->makeWindow({0, 0, 1280, 30});
        const auto reserve = [&](quint32 height) {
            m_client->setProperty(panel, "_NET_WM_STRUT", XCB_ATOM_CARDINAL, {0, 0, height, 0});
        };
        reserve(30);
        m_client->setProperty(m_client->root(), "_NET_CLIENT_LIST", XCB_ATOM_WINDOW, {panel});
        const StrutWatcher watcher;
        const QSignalSpy changed(&watcher, &StrutWatcher::changed);
        const QList<Strut> before = watcher.struts();
        QCOMPARE(before.size(), 1);
        XcbConnection connection;

        reserve(40);
        m_server->stop();
        QTest::qWait(600);
        QCOMPARE(watcher.struts(), before);
        QElapsedTimer elapsed;
        elapsed.start();
        for (int times = 0; times < 20; ++times) {
            QCOMPARE(connection.atom("PERCHLY_TEST"), xcb_atom_t{XCB_ATOM_NONE});
        }
        QVERIFY(elapsed.elapsed() < 2000);
        m_server->goOn();
        QTRY_COMPARE(changed.count(), 1);
        QCOMPARE(watcher.struts().size(), 1);
        QVERIFY(watcher.struts() != before);
        QTRY_VERIFY(connection.atom("PERCHLY_TEST") != XCB_ATOM_NONE);
    }

    void eventsReadWithAReplyAreEmitted() {
        XcbConnection connection;
        int told = 0;
        connect(&connection, &XcbConnection::eventArrived, this, [&] { ++told; });
        connection.selectEvents(connection.root(), XCB_EVENT_MASK_PROPERTY_CHANGE);
        const xcb_atom_t atom = connection.atom("PERCHLY_TEST");
        m_client->setProperty(m_client->root(), "PERCHLY_TEST", XCB_ATOM_CARDINAL, {1});
        // The reply comes after the event.
        QCOMPARE(connection.property(connection.root(), atom), QList<quint32>{1});
        QCOMPARE(told, 0);
        QTRY_COMPARE(told, 1);
    }

    void connectingHasATimeout() {
        const int silent = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t length = sizeof address;
        QCOMPARE(::bind(silent, reinterpret_cast<sockaddr *>(&address), length), 0);
        QCOMPARE(::listen(silent, 1), 0);
        QCOMPARE(::getsockname(silent, reinterpret_cast<sockaddr *>(&address), &length), 0);
        QVERIFY(connectWithTimeout());
        qputenv("DISPLAY", "localhost:" + QByteArray::number(ntohs(address.sin_port) - 6000));
        QElapsedTimer elapsed;
        elapsed.start();
        QVERIFY(!connectWithTimeout(200ms));
        QVERIFY(elapsed.elapsed() >= 200 && elapsed.elapsed() < 2000);
        ::close(silent);
    }

private:
    std::optional<OwnServer> m_server;
    std::optional<XClient> m_client;
};

QTEST_GUILESS_MAIN(BusyServerTest)
#include "BusyServerTest.moc"
