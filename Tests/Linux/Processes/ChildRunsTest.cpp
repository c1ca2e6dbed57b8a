#include "ChildRuns.h"
#include "TestFiles.h"

#include <QElapsedTimer>
#include <QTemporaryDir>

#include <csignal>

using namespace perchly;
using namespace std::chrono_literals;

class ChildRunsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        QFile::remove(m_mark);
        m_result.reset();
    }

    void runsEndWithStatusAndOutput() {
        struct Row {
            const char *script;
            int status;
            const char *output;
        };
        for (const Row &row : {
                 Row{"echo err >&2; cat; echo out", 0, "out\n"}, Row{"exit 3", 3, ""},
                 Row{"kill -9 $$", -1, ""}, Row{"", -1, ""}, // no such program
                 Row{"exec yes", -1, ""}, Row{"trap '' TERM; while :; do sleep 1; done", -1, ""},
                 Row{"sleep 3 &", 0, ""}, // the child of the shell keeps the output open
             }) {
            QElapsedTimer timer;
            timer.start();
            m_result.reset();
            const Task task = run(row.script, {.time = 1s, .maxOutput = 1000});
            QVERIFY(!m_result);
            QTRY_VERIFY(m_result.has_value());
            QVERIFY2(timer.elapsed() < 2500, row.script);
            QCOMPARE(m_result->status.value_or(-1), row.status);
            QCOMPARE(m_result->output, row.output);
        }
    }

    void destroyedTaskKillsAllDescendants() {
        Task task =
            run("(trap '' TERM; sh -c 'echo $$ > $MARK; while :; do sleep 1; done') & wait");
        QTRY_VERIFY(marked() > 0);
        task.reset();
        QTRY_VERIFY(kill(marked(), 0) != 0);
        QVERIFY(!m_result);
    }

    void childMayOutliveItsTask() {
        auto runs = std::make_unique<ChildRuns>(1);
        Task task = run("echo $$ > $MARK; exec sleep 60", {}, OnStop::LeaveChild, runs.get());
        QTRY_VERIFY(marked() > 0);
        QElapsedTimer timer;
        timer.start();
        task.reset();
        runs.reset();
        QVERIFY(timer.elapsed() < 1000);
        QCOMPARE(kill(marked(), SIGKILL), 0);
        QTRY_VERIFY(kill(marked(), 0) != 0);
    }

    void runsBeyondTheLimitWait() {
        ChildRuns runs(1);
        Task first = run("exec sleep 60", {}, OnStop::EndChild, &runs);
        const Task second = run("exit 5", {}, OnStop::EndChild, &runs);
        QTest::qWait(200);
        QVERIFY(!m_result);
        first.reset();
        QTRY_VERIFY(m_result.has_value());
        QCOMPARE(m_result->status, 5);
    }

private:
    [[nodiscard]] Task run(const QByteArray &script, const ChildLimits &limits = {},
                           OnStop onStop = OnStop::EndChild, ChildRuns *runs = nullptr) {
        qputenv("MARK", QFile::encodeName(m_mark));
        const QString program =
            script.isEmpty() ? QStringLiteral("/nowhere/at/all") : QStringLiteral("/bin/sh");
        return (runs != nullptr ? *runs : m_runs)
            .run(program, {QStringLiteral("-c"), QString::fromUtf8(script)}, limits, onStop,
                 [this](const ChildResult &result) { m_result = result; });
    }
    [[nodiscard]] int marked() const { return readFile(m_mark).trimmed().toInt(); }

    QTemporaryDir m_folder;
    const QString m_mark = m_folder.filePath(QStringLiteral("mark"));
    std::optional<ChildResult> m_result;
    ChildRuns m_runs{2};
};

QTEST_GUILESS_MAIN(ChildRunsTest)
#include "ChildRunsTest.moc"
