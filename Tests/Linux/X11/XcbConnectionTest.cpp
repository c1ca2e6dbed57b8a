#include "XcbConnection.h"
#include "OwnServer.h"
#include "XServerReach.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace perchly;

class XcbConnectionTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aServerThatIsNotThereCannotBeReached() {
        QVERIFY(!connectToXServer(":4090"));
        QVERIFY(!connectToXServer("nonsense"));
        qunsetenv("DISPLAY");
        QVERIFY(!connectToXServer());
        XcbConnection connection(":4090");
        QVERIFY(!connection.isAlive());
        QCOMPARE(connection.atom("PERCHLY_TEST"), xcb_atom_t{XCB_ATOM_NONE});
        connection.drain();
        connection.flush();
    }

    void aServerThatNeverAnswersIsGivenUp() {
        const int silent = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t length = sizeof address;
        QCOMPARE(::bind(silent, reinterpret_cast<sockaddr *>(&address), length), 0);
        QCOMPARE(::listen(silent, 1), 0);
        QCOMPARE(::getsockname(silent, reinterpret_cast<sockaddr *>(&address), &length), 0);
        const QByteArray name = "localhost:" + QByteArray::number(ntohs(address.sin_port) - 6000);
        QElapsedTimer elapsed;
        elapsed.start();
        QVERIFY(!connectToXServer(name, nullptr, std::chrono::milliseconds(200)));
        QVERIFY(elapsed.elapsed() >= 200);
        QVERIFY(elapsed.elapsed() < 2000);
        ::close(silent);
    }

    void eventsReadWhileWaitingAreTold() {
        const OwnServer server;
        XcbConnection connection(server.name());
        int told = 0;
        connect(&connection, &XcbConnection::eventArrived, this, [&] { ++told; });
        const quint32 mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_change_window_attributes(connection.get(), connection.root(), XCB_CW_EVENT_MASK, &mask);
        const xcb_atom_t atom = connection.atom("PERCHLY_TEST");
        xcb_change_property(connection.get(), XCB_PROP_MODE_REPLACE, connection.root(), atom,
                            XCB_ATOM_CARDINAL, 32, 1, &mask);
        // The answer comes after the event.
        QCOMPARE(connection.property(connection.root(), atom), QList<quint32>{mask});
        QCOMPARE(told, 0);
        QTRY_COMPARE(told, 1);
    }

    void aSilentServerDelaysOnlyALittle() {
        const OwnServer server;
        XcbConnection connection(server.name());
        const QSignalSpy restored(&connection, &XcbConnection::restored);
        server.signal("-STOP");
        QElapsedTimer elapsed;
        elapsed.start();
        for (int times = 0; times < 20; ++times) {
            QCOMPARE(connection.atom("PERCHLY_TEST"), xcb_atom_t{XCB_ATOM_NONE});
        }
        QVERIFY(elapsed.elapsed() < 2000);
        QTest::qWait(800);
        QVERIFY(connection.isBehind());
        QCOMPARE(restored.count(), 0);
        server.signal("-CONT");
        QTRY_COMPARE(restored.count(), 1);
        QVERIFY(!connection.isBehind());
        QVERIFY(connection.atom("PERCHLY_TEST") != XCB_ATOM_NONE);
        QTest::qWait(800);
        QCOMPARE(restored.count(), 1);
    }

    void aLostConnectionIsMadeAgain() {
        const OwnServer server;
        XcbConnection connection(server.name());
        XcbConnection other(server.name());
        const QSignalSpy restored(&connection, &XcbConnection::restored);
        for (int times = 1; times <= 2; ++times) {
            ::shutdown(xcb_get_file_descriptor(connection.get()), SHUT_RDWR);
            QTRY_VERIFY(!connection.isAlive());
            QTRY_COMPARE(restored.count(), times);
            QVERIFY(connection.atom("PERCHLY_TEST") != XCB_ATOM_NONE);
        }
        int told = 0;
        connect(&connection, &XcbConnection::eventArrived, this, [&] { ++told; });
        const quint32 mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_change_window_attributes(connection.get(), connection.root(), XCB_CW_EVENT_MASK, &mask);
        QVERIFY(connection.succeeded({}));
        xcb_change_property(other.get(), XCB_PROP_MODE_REPLACE, other.root(),
                            other.atom("PERCHLY_TEST"), XCB_ATOM_CARDINAL, 32, 1, &mask);
        other.flush();
        QTRY_COMPARE(told, 1);
    }

    void aLostServerIsSurvived() {
        OwnServer server;
        XcbConnection connection(server.name());
        const QSignalSpy drained(&connection, &XcbConnection::drained);
        server.kill();
        QTRY_VERIFY(!connection.isAlive());
        const auto after = drained.count();
        QTest::qWait(100);
        QVERIFY(drained.count() - after < 3);
        QVERIFY(!connection.succeeded({}));
        QVERIFY(connection.property(connection.root(), XCB_ATOM_WM_NAME).isEmpty());
    }
};

QTEST_GUILESS_MAIN(XcbConnectionTest)
#include "XcbConnectionTest.moc"
