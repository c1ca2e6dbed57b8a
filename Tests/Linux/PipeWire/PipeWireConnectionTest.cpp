#include "PipeWireConnection.h"

#include <QDir>
#include <QElapsedTimer>
#include <QLocalServer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <linux/capability.h>
#include <sched.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <memory>

using namespace perchly;

namespace {

/// From here on, this thread and its new threads must ask a bus for real-time priority, as in
/// ordinary programs.
void giveUpRealTimeRights() {
    const rlimit none{};
    ::setrlimit(RLIMIT_RTPRIO, &none);
    __user_cap_header_struct header{.version = _LINUX_CAPABILITY_VERSION_3, .pid = 0};
    std::array<__user_cap_data_struct, 2> capabilities{};
    ::syscall(SYS_capget, &header, capabilities.data());
    capabilities[0].effective &= ~(1U << CAP_SYS_NICE);
    ::syscall(SYS_capset, &header, capabilities.data());
}

QStringList threads() {
    return QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
}

bool hasRealTimeThread() {
    const QStringList all = threads();
    return std::any_of(all.cbegin(), all.cend(), [](const QString &thread) {
        return (::sched_getscheduler(thread.toInt()) & ~SCHED_RESET_ON_FORK) == SCHED_FIFO;
    });
}

bool mayTakeRealTimePriority() {
    const sched_param realTime{.sched_priority = 88};
    const sched_param plain{};
    const bool may = ::sched_setscheduler(0, SCHED_FIFO | SCHED_RESET_ON_FORK, &realTime) == 0;
    ::sched_setscheduler(0, SCHED_OTHER, &plain);
    return may;
}

} // namespace

class PipeWireConnectionTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() {
        for (const char *bus : {"DBUS_SESSION_BUS_ADDRESS", "DBUS_SYSTEM_BUS_ADDRESS"}) {
            qputenv(bus, "unix:path=" + QFile::encodeName(m_bus));
        }
    }

    void audioThreadGetsRealTimePriority() {
        const bool isAllowed = mayTakeRealTimePriority(); // without the help of a bus
        PipeWireConnection connection;
        connection.start();
        QTRY_VERIFY(connection.core() != nullptr);
        connection.passRealTimeThread(); // PipeWire 1.1 and later start the thread on first use
        QTRY_COMPARE(hasRealTimeThread(), isAllowed);
    }

    void silentBusDoesNotBlock() {
        giveUpRealTimeRights();
        auto bus = std::make_unique<QLocalServer>(); // accepts connections but never answers
        QVERIFY(bus->listen(m_bus));
        const qsizetype before = threads().size();
        std::make_unique<PipeWireConnection>()->start(); // and destroys it at once
        QTRY_VERIFY(bus->hasPendingConnections());
        PipeWireConnection connection;
        QSignalSpy answered(&connection, &PipeWireConnection::answered);
        QElapsedTimer time;
        time.start();
        connection.start();
        QVERIFY2(time.elapsed() < 100, qPrintable(QString::number(time.elapsed())));
        QTest::qWait(200);
        QVERIFY(connection.core() == nullptr);
        bus.reset();
        QTRY_VERIFY(connection.core() != nullptr);
        const int number = connection.ask();
        QTRY_VERIFY(!answered.isEmpty());
        QCOMPARE(answered.last().at(0).toInt(), number);
        connection.passRealTimeThread();
        QVERIFY(!hasRealTimeThread());
        QTRY_VERIFY(threads().size() <= before + 1); // the connection's own thread
    }

private:
    QTemporaryDir m_folder;
    QString m_bus = m_folder.filePath(QStringLiteral("bus"));
};

QTEST_GUILESS_MAIN(PipeWireConnectionTest)
#include "PipeWireConnectionTest.moc"
