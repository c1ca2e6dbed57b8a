#include "ProcessScriptHost.h"
#include "TestFiles.h"

#include <QElapsedTimer>

#include <csignal>

using namespace perchly;
using namespace std::chrono_literals;

namespace {

using Output = std::optional<QByteArray>;
using Limit = std::optional<std::chrono::milliseconds>;

/// Stands in for the companion: what it does is the script of a shell.
class ShellHost {
public:
    void start(const char *script, Limit limit = std::nullopt) {
        task = host.run({QStringLiteral("-c"), QString::fromUtf8(script)}, limit,
                        [this](const Output &got) {
                            output = got;
                            ended = true;
                        });
    }

    ProcessScriptHost host{QStringLiteral("/bin/sh")};
    Task task;
    Output output;
    bool ended = false;
};

bool isAlive(const QString &pidFile) {
    const int pid = readFile(pidFile).trimmed().toInt();
    return pid > 0 && kill(pid, 0) == 0;
}

} // namespace

class ScriptRunTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void givesTheOutputOfASuccess_data() {
        QTest::addColumn<Output>("output");
        const auto row = [](const char *script, const Output &output) {
            QTest::newRow(script) << output;
        };
        row("echo null", Output("null\n"));
        row("echo error >&2; printf 'a\\000b'", Output(QByteArray("a\0b", 3)));
        row("head -c 200000 /dev/zero | tr '\\0' x", Output(QByteArray(200'000, 'x')));
        row("echo before; exit 3", Output());
        row("echo before; kill -KILL $$", Output());
        row("yes", Output());
        row("echo first; sleep 4 & echo last", Output("first\nlast\n"));
        row("exec >&-; sleep 0.2; exit 0", Output(""));
    }

    void givesTheOutputOfASuccess() {
        QFETCH(const Output, output);
        ShellHost shell;
        QElapsedTimer timer;
        timer.start();
        shell.start(QTest::currentDataTag(), 5s);
        QVERIFY(!shell.ended);
        QTRY_VERIFY(shell.ended);
        QVERIFY(shell.output == output);
        QVERIFY2(timer.elapsed() < 2000, "what a child of the child holds open is not waited for");
    }

    void aRunEndsAtItsLimit_data() {
        QTest::addColumn<QByteArray>("script");
        QTest::addColumn<int>("most");
        QTest::newRow("one that sleeps") << QByteArray("exec sleep 60") << 2000;
        QTest::newRow("one that will not end")
            << QByteArray("trap '' TERM; while :; do :; done") << 4000;
    }

    void aRunEndsAtItsLimit() {
        QFETCH(const QByteArray, script);
        QFETCH(const int, most);
        ShellHost shell;
        QElapsedTimer timer;
        timer.start();
        shell.start(script.constData(), 200ms);
        QTRY_VERIFY(shell.ended);
        QVERIFY(!shell.output);
        QVERIFY(timer.elapsed() >= 200 && timer.elapsed() < most);
    }

    void aDroppedRunIsEndedAndNeverAnswers() {
        const QString pidFile = qEnvironmentVariable("HOME") + QStringLiteral("/pid");
        ShellHost shell;
        shell.start("echo $$ > \"$HOME/pid\"; exec sleep 60");
        QTRY_VERIFY(isAlive(pidFile));
        shell.task.reset();
        QTRY_VERIFY(!isAlive(pidFile));
        shell.start("true");
        shell.task.reset(); // perhaps ended already, with its answer on the way
        QTest::qWait(50);
        QVERIFY(!shell.ended);
    }

    void aDroppedHostDoesNotHoldUpTheProgram() {
        QElapsedTimer timer;
        {
            ShellHost shell;
            shell.start("exec sleep 60");
            QTest::qWait(30);
            timer.start();
        }
        QVERIFY(timer.elapsed() < 2000);
    }

    void aProgramThatIsMissingFails() {
        for (const QString &program : {QString(), QStringLiteral("/nowhere/perchly-scripthost"),
                                       QStringLiteral("/etc/passwd")}) {
            ProcessScriptHost host(program);
            bool ended = false;
            const Task task = host.run({}, 5s, [&](const Output &output) { ended = !output; });
            QTRY_VERIFY(ended);
            QCOMPARE(host.isRunnable(), !program.isEmpty());
        }
    }

    void childrenStartWithNothingBlocked() {
        ShellHost shell;
        sigset_t signals;
        sigset_t before;
        sigemptyset(&signals);
        sigaddset(&signals, SIGTERM); // as the audio library wants it in the program
        sigaddset(&signals, SIGALRM);
        pthread_sigmask(SIG_BLOCK, &signals, &before);
        shell.start("grep SigBlk /proc/self/status | tr -d '[:space:]'");
        QTRY_VERIFY(shell.ended);
        pthread_sigmask(SIG_SETMASK, &before, nullptr);
        QCOMPARE(*shell.output, QByteArray("SigBlk:0000000000000000"));
    }
};

QTEST_GUILESS_MAIN(ScriptRunTest)
#include "ScriptRunTest.moc"
