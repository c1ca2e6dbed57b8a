#include "PipeWireConnection.h"

#include <QDir>
#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <linux/capability.h>
#include <poll.h>
#include <sched.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>

using namespace perchly;

namespace {

constexpr int atOnce = 100; // milliseconds; a bus is waited for much longer

/// A bus that lets programs connect and never says a word. When it goes, they are told.
class SilentBus {
public:
    explicit SilentBus(const QByteArray &path) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        Q_ASSERT(std::size_t(path.size()) < sizeof(address.sun_path));
        std::memcpy(address.sun_path, path.constData(), std::size_t(path.size()));
        ::unlink(path.constData());
        if (::bind(m_socket, reinterpret_cast<const sockaddr *>(&address), sizeof(address)) != 0 ||
            ::listen(m_socket, 8) != 0) {
            qFatal("no place for the bus");
        }
    }
    ~SilentBus() { ::close(m_socket); }
    Q_DISABLE_COPY_MOVE(SilentBus)

    [[nodiscard]] bool isCalled() const {
        pollfd descriptor{.fd = m_socket, .events = POLLIN, .revents = 0};
        return ::poll(&descriptor, 1, 0) == 1;
    }

private:
    int m_socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
};

/// Meanwhile this thread and those it begins cannot take real-time priority without asking for it,
/// like most people's programs.
class OrdinaryRights {
public:
    OrdinaryRights() {
        ::getrlimit(RLIMIT_RTPRIO, &m_limit);
        const rlimit none{.rlim_cur = 0, .rlim_max = m_limit.rlim_max};
        ::setrlimit(RLIMIT_RTPRIO, &none);
        ::syscall(SYS_capget, &m_header, m_capabilities.data());
        auto fewer = m_capabilities;
        fewer[0].effective &= ~(1U << CAP_SYS_NICE);
        ::syscall(SYS_capset, &m_header, fewer.data());
    }
    ~OrdinaryRights() {
        ::syscall(SYS_capset, &m_header, m_capabilities.data());
        ::setrlimit(RLIMIT_RTPRIO, &m_limit);
    }
    Q_DISABLE_COPY_MOVE(OrdinaryRights)

private:
    rlimit m_limit{};
    __user_cap_header_struct m_header{.version = _LINUX_CAPABILITY_VERSION_3, .pid = 0};
    std::array<__user_cap_data_struct, 2> m_capabilities{};
};

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
    void initTestCase();
    void aSilentBusHoldsNobodyUp();
    void itConnectsWhenTheBusHasGone();
    void theAudioThreadHasRealTimePriority();

private:
    QTemporaryDir m_folder;
    QByteArray m_bus = QFile::encodeName(m_folder.filePath(QStringLiteral("bus")));
};

void PipeWireConnectionTest::initTestCase() {
    // Once, as they are read once.
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + m_bus);
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=" + m_bus);
}

void PipeWireConnectionTest::aSilentBusHoldsNobodyUp() {
    const OrdinaryRights rights;
    auto bus = std::make_unique<SilentBus>(m_bus);
    const qsizetype before = threads().size();
    auto connection = std::make_unique<PipeWireConnection>();
    QElapsedTimer time;
    time.start();
    connection->start();
    QVERIFY2(time.elapsed() < atOnce, qPrintable(QString::number(time.elapsed())));
    QTRY_VERIFY(bus->isCalled());
    QTest::qWait(2 * atOnce);
    QVERIFY(connection->core() == nullptr);
    QCOMPARE(threads().size(), before + 1);
    time.start();
    connection.reset();
    QVERIFY2(time.elapsed() < atOnce, qPrintable(QString::number(time.elapsed())));
    // What nobody wants any more goes, with its own threads.
    bus.reset();
    QTRY_COMPARE(threads().size(), before);
}

void PipeWireConnectionTest::itConnectsWhenTheBusHasGone() {
    const OrdinaryRights rights;
    auto bus = std::make_unique<SilentBus>(m_bus);
    PipeWireConnection connection;
    QSignalSpy connected(&connection, &PipeWireConnection::connected);
    QSignalSpy answered(&connection, &PipeWireConnection::answered);
    connection.start();
    QTRY_VERIFY(bus->isCalled());
    bus.reset();
    QTRY_COMPARE(connected.size(), 1);
    const int number = connection.ask();
    QTRY_VERIFY(!answered.isEmpty());
    QCOMPARE(answered.last().at(0).toInt(), number);
    connection.passRealTimeThread();
    QVERIFY(!hasRealTimeThread());
}

void PipeWireConnectionTest::theAudioThreadHasRealTimePriority() {
    const bool isAllowed = mayTakeRealTimePriority(); // no bus answers that could be asked for it
    PipeWireConnection connection;
    connection.start();
    QTRY_VERIFY(connection.core() != nullptr);
    connection.passRealTimeThread(); // PipeWire 1.1 and later start the thread at its first use
    QTRY_COMPARE(hasRealTimeThread(), isAllowed);
}

QTEST_GUILESS_MAIN(PipeWireConnectionTest)
#include "PipeWireConnectionTest.moc"
