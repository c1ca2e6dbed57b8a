#include "FullDisk.h"
#include "ProcessShortcutsTool.h"
#include "TestFiles.h"

#include <QElapsedTimer>

#include <csignal>

using namespace perchly;

namespace {

/// One call of the tool, and how it ended.
struct Call {
    Call(ShortcutsTool &tool, const QStringList &arguments)
        : task(tool.execute(arguments,
                            [this](const ShortcutsTool::Result &got) { result = got; })) {}

    [[nodiscard]] bool ends() {
        return QTest::qWaitFor([this] { return result.has_value(); }, 20'000);
    }

    std::optional<ShortcutsTool::Result> result;
    Task task;
};

const auto executable = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;

} // namespace

class ShortcutsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        QFile::remove(m_folder.path()); // one test makes a file of it
        m_folder.removeRecursively();
        QFile::remove(marker());
        qputenv("MARKER", QFile::encodeName(marker()));
        QCOMPARE(m_tool.folder(), m_folder.path());
    }

    void whatIsListed_data() {
        QTest::addColumn<QStringList>("files");
        QTest::addColumn<QString>("listed");
        const auto row = [](const char *name, const QStringList &files, const char *listed) {
            QTest::newRow(name) << files << QString::fromUtf8(listed);
        };
        row("nothing where there is no folder", {}, "");
        row("names without their extensions, sorted",
            {QStringLiteral("b.sh"), QStringLiteral("Ä ö.py"), QStringLiteral("a")}, "a\nb\nÄ ö\n");
        row("points that begin no extension",
            {QStringLiteral("Version 1.2"), QStringLiteral("Mr. Smith"), QStringLiteral("a.b.sh")},
            "Mr. Smith\nVersion 1.2\na.b\n");
        row("one of two files with the same name", {QStringLiteral("a.sh"), QStringLiteral("a.py")},
            "a\n");
        row("no hidden files, no backups and no names of two lines",
            {QStringLiteral(".a"), QStringLiteral("a~"), QStringLiteral("a\nb"),
             QStringLiteral("c")},
            "c\n");
        row("names from right to left and with percent signs",
            {QStringLiteral("שלום.sh"), QStringLiteral("100%.sh")}, "100%\nשלום\n");
    }

    void whatIsListed() {
        QFETCH(QStringList, files);
        for (const QString &file : files) {
            write(file);
        }
        if (!files.isEmpty()) {
            write(QStringLiteral("not executable"), {}, QFile::ReadOwner);
            m_folder.mkdir(QStringLiteral("a folder"));
            QFile::link(QStringLiteral("nowhere"),
                        m_folder.filePath(QStringLiteral("a broken link")));
            QFile::link(QStringLiteral("/dev/null"), m_folder.filePath(QStringLiteral("no file")));
        }
        Call call(m_tool, {QStringLiteral("list")});
        QVERIFY(call.ends());
        QCOMPARE(call.result->status, 0);
        QTEST(call.result->output, "listed");
    }

    void aFolderThatIsNoneIsAFailure() {
        m_data.mkpath(QStringLiteral("perchly"));
        QVERIFY(QFile(m_folder.path()).open(QIODevice::WriteOnly));
        Call call(m_tool, {QStringLiteral("list")});
        QVERIFY(call.ends());
        QCOMPARE(call.result->status, 1);
    }

    void onlyAListedNameRuns_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("runs");
        QTest::newRow("its name") << QStringLiteral("inside") << true;
        QTest::newRow("a way out of the folder") << QStringLiteral("../outside") << false;
        QTest::newRow("a hidden file") << QStringLiteral(".hidden") << false;
        QTest::newRow("one that is not executable") << QStringLiteral("plain") << false;
        QTest::newRow("nothing") << QString() << false;
    }

    void onlyAListedNameRuns() {
        QFETCH(QString, name);
        QFETCH(bool, runs);
        const QByteArray script("#!/bin/sh\necho ran > \"$MARKER\"\n");
        for (const char *file : {"inside.sh", ".hidden", "../outside"}) {
            write(QString::fromLatin1(file), script);
        }
        write(QStringLiteral("plain"), script, QFile::ReadOwner);
        Call call(m_tool, {QStringLiteral("run"), name});
        QVERIFY(call.ends());
        QCOMPARE(call.result->status == 0, runs);
        QCOMPARE(marked(), QByteArray(runs ? "ran" : ""));
    }

    void aRunGivesTheStatusOfTheShortcut_data() {
        QTest::addColumn<QByteArray>("script");
        QTest::addColumn<int>("status");
        QTest::addColumn<QByteArray>("mark");
        const auto row = [](const char *name, const char *script, int status,
                            const char *mark = "") {
            QTest::newRow(name) << QByteArray(script) << status << QByteArray(mark);
        };
        row("success", "#!/bin/sh\nexit 0\n", 0);
        row("failure", "#!/bin/sh\nexit 3\n", 3);
        row("a script that names no interpreter", "exit 4\n", 4);
        row("an interpreter that is not there", "#!/nowhere/at/all\n", 126);
        row("a signal", "#!/bin/sh\nkill -9 $$\n", -1);
        row("it starts at home", "#!/bin/sh\n[ \"$PWD\" = \"$HOME\" ] && echo home > \"$MARKER\"\n",
            0, "home");
        row("it writes a gigabyte", "#!/bin/sh\nhead -c 1G /dev/zero\nhead -c 1G /dev/zero >&2\n",
            0);
        row("it reads", "#!/bin/sh\ncat > \"$MARKER\"\n", 0);
        row("it leaves a child that keeps its streams",
            "#!/bin/sh\nsleep 60 & echo $! > \"$MARKER\"\n", 0, "pid");
    }

    void aRunGivesTheStatusOfTheShortcut() {
        QFETCH(QByteArray, script);
        QFETCH(QByteArray, mark);
        write(QStringLiteral("Shortcut.sh"), script);
        QElapsedTimer timer;
        timer.start();
        Call call(m_tool, {QStringLiteral("run"), QStringLiteral("Shortcut")});
        QVERIFY(call.ends());
        QVERIFY2(timer.elapsed() < 15'000, "it waited for more than the shortcut");
        QTEST(call.result->status, "status");
        QCOMPARE(call.result->output, QString());
        if (mark == "pid") {
            QCOMPARE(kill(marked().toInt(), SIGKILL), 0);
        } else {
            QCOMPARE(marked(), mark);
        }
    }

    void aShortcutGoesOnWhenNobodyWaits() {
        write(QStringLiteral("Endless.sh"), "#!/bin/sh\necho $$ > \"$MARKER\"\nexec sleep 60\n");
        auto tool = std::make_unique<ProcessShortcutsTool>(QStringLiteral(SHORTCUTS_COMPANION));
        auto call = std::make_unique<Call>(
            *tool, QStringList{QStringLiteral("run"), QStringLiteral("Endless")});
        QTRY_VERIFY(!marked().isEmpty());
        QElapsedTimer timer;
        timer.start();
        call.reset();
        tool.reset();
        QVERIFY(timer.elapsed() < 1000);
        QCOMPARE(kill(marked().toInt(), SIGKILL), 0);
    }

    void aStopEndsTheShortcutAndWhatItStarted_data() {
        QTest::addColumn<QByteArray>("script");
        QTest::addColumn<int>("least");
        QTest::newRow("when they are asked")
            << QByteArray("sleep 60 & echo $! > $MARKER; wait") << 0;
        QTest::newRow("when they will not")
            << QByteArray("trap '' TERM; sh -c 'echo $$ > $MARKER; while :; do sleep 1; done'")
            << 2000;
        QTest::newRow("when what they started will not")
            << QByteArray("(trap '' TERM; sh -c 'echo $$ > $MARKER; while :; do sleep 1; done') & "
                          "wait")
            << 2000;
    }

    void aStopEndsTheShortcutAndWhatItStarted() {
        QFETCH(QByteArray, script);
        QFETCH(int, least);
        write(QStringLiteral("Endless.sh"), "#!/bin/sh\n" + script + '\n');
        Call call(m_tool, {QStringLiteral("run"), QStringLiteral("Endless")});
        QTRY_VERIFY(!marked().isEmpty());
        QElapsedTimer timer;
        timer.start();
        m_tool.stopRuns();
        QVERIFY(call.ends());
        QCOMPARE(call.result->status, -1);
        QVERIFY(timer.elapsed() >= least && timer.elapsed() < least + 1500);
        QTRY_VERIFY(kill(marked().toInt(), 0) != 0);
    }

    void aToolThatMisbehavesIsAFailure_data() {
        QTest::addColumn<QByteArray>("script");
        QTest::addColumn<int>("status");
        QTest::newRow("it is not there") << QByteArray() << -1;
        QTest::newRow("it writes for ever") << QByteArray("#!/bin/sh\nexec yes\n") << -1;
        QTest::newRow("it writes no text") << QByteArray("#!/bin/sh\nprintf 'a\\377b'\n") << 0;
    }

    void aToolThatMisbehavesIsAFailure() {
        QFETCH(QByteArray, script);
        const QString program = m_folder.filePath(QStringLiteral("tool"));
        if (!script.isEmpty()) {
            write(QStringLiteral("tool"), script);
        }
        ProcessShortcutsTool tool(program);
        Call call(tool, {QStringLiteral("list")});
        QVERIFY(call.ends());
        QTEST(call.result->status, "status");
        QCOMPARE(call.result->output, QString());
    }

    void theFolderIsMadeOnceWithAFirstShortcut() {
        QStringList errors;
        const auto prepare = [this, &errors] {
            m_tool.prepareFolder([&errors](const QString &error) { errors.append(error); });
        };
        m_folder.removeRecursively();
        {
            const FullDisk fullDisk;
            prepare();
            QTRY_COMPARE(errors.size(), 1);
        }
        QVERIFY(!errors.takeFirst().isEmpty());
        prepare();
        QTRY_COMPARE(errors, QStringList{QString()});
        Call call(m_tool, {QStringLiteral("list")});
        QVERIFY(call.ends());
        QCOMPARE(call.result->output, QStringLiteral("Say hello\n"));
        QVERIFY(m_folder.remove(QStringLiteral("Say hello.sh")));
        prepare();
        QTRY_COMPARE(errors.size(), 2);
        QCOMPARE(m_folder.entryList(QDir::Files),
                 QStringList(QStringLiteral("How to make a shortcut.txt")));

        init();
        QVERIFY(QFile(m_folder.path()).open(QIODevice::WriteOnly));
        prepare();
        QTRY_COMPARE(errors.size(), 3);
        QVERIFY(errors.last().startsWith(QStringLiteral("The shortcuts folder cannot be made: ")));
    }

private:
    /// A shortcut, or with other permissions what is none. Scripts can reach `marker()`.
    void write(const QString &name, const QByteArray &text = "#!/bin/sh\n",
               QFile::Permissions permissions = executable) const {
        writeFile(m_folder.filePath(name), text);
        QFile::setPermissions(m_folder.filePath(name), permissions);
    }
    [[nodiscard]] QString marker() const { return m_data.filePath(QStringLiteral("marker")); }
    [[nodiscard]] QByteArray marked() const { return readFile(marker()).trimmed(); }

    QDir m_data{qEnvironmentVariable("XDG_DATA_HOME")};
    QDir m_folder{m_data.filePath(QStringLiteral("perchly/shortcuts"))};
    ProcessShortcutsTool m_tool{QStringLiteral(SHORTCUTS_COMPANION)};
};

QTEST_GUILESS_MAIN(ShortcutsTest)

#include "ShortcutsTest.moc"
