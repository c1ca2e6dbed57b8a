#include <QDBusConnection>
#include <QDBusMessage>
#include <QElapsedTimer>
#include <QProcess>
#include <QTest>

#include <csignal>
#include <memory>
#include <vector>

namespace {

/// A start of the program as far as this matters, with a session bus or without.
class Instance {
public:
    explicit Instance(bool withBus, const QString &runtimeFolder = {}) {
        auto environment = QProcessEnvironment::systemEnvironment();
        if (!withBus) {
            environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"),
                               QStringLiteral("unix:path=/nowhere/at/all"));
        }
        if (!runtimeFolder.isNull()) {
            environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtimeFolder);
        }
        m_process.setProcessEnvironment(environment);
        m_process.start(QStringLiteral(INSTANCE_PROCESS), QStringList());
    }
    ~Instance() {
        signal(SIGCONT);
        m_process.kill();
        m_process.waitForFinished();
    }
    Instance(const Instance &) = delete;
    Instance &operator=(const Instance &) = delete;

    /// "claimed", "refused" or an action.
    QByteArray nextWord() {
        while (!m_process.canReadLine() && m_process.waitForReadyRead(5000)) {
        }
        m_line = m_process.readLine().trimmed();
        return m_line.split(' ').first();
    }
    [[nodiscard]] QByteArray line() const { return m_line; }
    QByteArray standardError() {
        m_process.waitForFinished(3000);
        return m_process.readAllStandardError();
    }
    bool isSilent() { return !m_process.waitForReadyRead(100); }
    void signal(int number) {
        if (m_process.processId() > 0) {
            ::kill(static_cast<pid_t>(m_process.processId()), number);
        }
    }
    void killNow() {
        m_process.kill();
        m_process.waitForFinished();
    }

private:
    QProcess m_process;
    QByteArray m_line;
};

void call(const QString &method, const QVariantList &arguments) {
    QDBusMessage message = QDBusMessage::createMethodCall(
        QStringLiteral("org.perchly.Perchly"), QStringLiteral("/org/perchly/Perchly"),
        QStringLiteral("org.freedesktop.Application"), method);
    message.setArguments(arguments);
    const QDBusMessage reply = QDBusConnection::sessionBus().call(message);
    QCOMPARE(reply.errorMessage(), QString());
}

} // namespace

class SingleInstanceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theSecondStartShowsTheFirstAndEnds_data();
    void theSecondStartShowsTheFirstAndEnds();
    void oneOfManySimultaneousStartsWins_data();
    void oneOfManySimultaneousStartsWins();
    void theNextStartWinsWhenTheFirstWasKilled_data();
    void theNextStartWinsWhenTheFirstWasKilled();
    void theDesktopsActionsReachTheFirst();
    void aFirstThatHangsHoldsTheSecondUpShortly();
    void aBusThatHangsCountsAsNone();
    void aRuntimeFolderThatOthersMayWriteIsNotTrusted();

private:
    static void ways() {
        QTest::addColumn<bool>("withBus");
        QTest::newRow("over the bus") << true;
        QTest::newRow("by the lock") << false;
    }
};

void SingleInstanceTest::theSecondStartShowsTheFirstAndEnds_data() {
    ways();
}

void SingleInstanceTest::theSecondStartShowsTheFirstAndEnds() {
    QFETCH(const bool, withBus);
    Instance first(withBus);
    QCOMPARE(first.nextWord(), QByteArray("claimed"));
    qInfo("us to claim, to connect: %s", first.line().constData());
    for (int start = 0; start < 3; ++start) {
        Instance second(withBus);
        QCOMPARE(second.nextWord(), QByteArray("refused"));
        qInfo("us to claim, to connect: %s", second.line().constData());
        QCOMPARE(second.standardError(), QByteArray());
        QCOMPARE(first.nextWord(), QByteArray("show"));
    }
    QVERIFY(first.isSilent());
}

void SingleInstanceTest::oneOfManySimultaneousStartsWins_data() {
    ways();
}

void SingleInstanceTest::oneOfManySimultaneousStartsWins() {
    QFETCH(const bool, withBus);
    std::vector<std::unique_ptr<Instance>> instances;
    for (int start = 0; start < 12; ++start) {
        instances.push_back(std::make_unique<Instance>(withBus));
    }
    int claimed = 0;
    for (const auto &instance : instances) {
        const QByteArray word = instance->nextWord();
        QVERIFY2(word == "claimed" || word == "refused", word.constData());
        claimed += word == "claimed" ? 1 : 0;
    }
    QCOMPARE(claimed, 1);
}

void SingleInstanceTest::theNextStartWinsWhenTheFirstWasKilled_data() {
    ways();
}

void SingleInstanceTest::theNextStartWinsWhenTheFirstWasKilled() {
    QFETCH(const bool, withBus);
    for (int start = 0; start < 5; ++start) {
        Instance instance(withBus);
        QCOMPARE(instance.nextWord(), QByteArray("claimed"));
        instance.killNow();
    }
}

void SingleInstanceTest::theDesktopsActionsReachTheFirst() {
    Instance first(true);
    QCOMPARE(first.nextWord(), QByteArray("claimed"));
    const auto act = [](const QString &action) {
        call(QStringLiteral("ActivateAction"), {action, QVariantList(), QVariantMap()});
    };
    for (const char *action : {"show", "search", "workspace", "mixer", "settings"}) {
        act(QString::fromLatin1(action));
        QCOMPARE(first.nextWord(), QByteArray(action));
    }
    act(QStringLiteral("quit"));
    act(QString());
    call(QStringLiteral("Open"), {QStringList{QStringLiteral("file:///etc")}, QVariantMap()});
    QVERIFY(first.isSilent());
    call(QStringLiteral("Activate"), {QVariantMap()});
    QCOMPARE(first.nextWord(), QByteArray("show"));
}

void SingleInstanceTest::aFirstThatHangsHoldsTheSecondUpShortly() {
    Instance first(true);
    QCOMPARE(first.nextWord(), QByteArray("claimed"));
    first.signal(SIGSTOP);
    QElapsedTimer elapsed;
    elapsed.start();
    Instance second(true);
    QCOMPARE(second.nextWord(), QByteArray("refused"));
    QVERIFY(elapsed.elapsed() < 2000);
    QVERIFY(second.standardError().contains("does not answer"));
}

void SingleInstanceTest::aBusThatHangsCountsAsNone() {
    const pid_t bus = qEnvironmentVariableIntValue("PERCHLY_TEST_BUS_PID");
    QVERIFY(bus > 0);
    ::kill(bus, SIGSTOP);
    const auto resume = qScopeGuard([bus] { ::kill(bus, SIGCONT); });
    QElapsedTimer elapsed;
    elapsed.start();
    Instance first(true);
    QCOMPARE(first.nextWord(), QByteArray("claimed"));
    QVERIFY(elapsed.elapsed() < 2000);
    Instance second(true);
    QCOMPARE(second.nextWord(), QByteArray("refused"));
    QCOMPARE(first.nextWord(), QByteArray("show"));
}

void SingleInstanceTest::aRuntimeFolderThatOthersMayWriteIsNotTrusted() {
    // The temporary folder's own kind: everybody may make a lock there.
    Instance first(false, QStringLiteral("/tmp"));
    QCOMPARE(first.nextWord(), QByteArray("claimed"));
    QVERIFY(!QFile::exists(QStringLiteral("/tmp/perchly.lock")));
    Instance second(false, QString(QLatin1String("")));
    QCOMPARE(second.nextWord(), QByteArray("refused"));
    QCOMPARE(first.nextWord(), QByteArray("show"));
}

QTEST_GUILESS_MAIN(SingleInstanceTest)
#include "SingleInstanceTest.moc"
