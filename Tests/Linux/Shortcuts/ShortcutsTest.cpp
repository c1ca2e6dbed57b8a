#include "FolderShortcutsTool.h"
#include "TestFiles.h"

#include <algorithm>

using namespace perchly;

class ShortcutsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        m_folder.removeRecursively();
        QFile::remove(m_mark);
        qputenv("MARK", QFile::encodeName(m_mark));
        QCOMPARE(m_tool.folder(), m_folder.path());
    }

    void executableFilesAreListed() {
        QCOMPARE(result({QStringLiteral("list")}), "0 ");
        for (const char *file : {"b.sh", "Ä ö.py", "a", "a.py", "Version 1.2", "a.b.sh", "100%.sh",
                                 ".hidden", "backup~", "two\nlines", "שלום.sh"}) {
            writeProgram(m_folder.filePath(QString::fromUtf8(file)), {});
        }
        writeFile(m_folder.filePath(QStringLiteral("not executable")), {});
        m_folder.mkdir(QStringLiteral("a folder"));
        QFile::link(QStringLiteral("nowhere"), m_folder.filePath(QStringLiteral("broken link")));
        QByteArrayList names = result({QStringLiteral("list")}).mid(2).trimmed().split('\n');
        QVERIFY(names.indexOf("a") < names.indexOf("b"));
        std::ranges::sort(names);
        QCOMPARE(names, QByteArrayList({"100%", "Version 1.2", "a", "a.b", "b", "Ä ö", "שלום"}));
    }

    void runReturnsTheShortcutsStatus() {
        const QString file = m_folder.filePath(QStringLiteral("x.sh"));
        writeProgram(file, {});
        for (const auto &[script, expected] : {
                 std::pair("#!/bin/sh\n[ \"$PWD\" = \"$HOME\" ] && echo home > $MARK\n", "0 home"),
                 std::pair("echo no interpreter > $MARK; exit 4\n", "4 no interpreter"),
                 std::pair("#!/bin/sh\nhead -c 1M /dev/zero; cat > $MARK; exit 5\n", "5 "),
                 std::pair("#!/bin/sh\nkill -9 $$\n", "-1 "),
             }) {
            writeFile(file, script);
            QCOMPARE(result({QStringLiteral("run"), QStringLiteral("x")}), expected);
        }
        QCOMPARE(result({QStringLiteral("run"), QStringLiteral("../shortcuts/x")}), "-1 ");
    }

    void shortcutOfAnEarlierInstanceCanBeStopped() {
        writeProgram(m_folder.filePath(QStringLiteral("Long one.sh")), "> $MARK; exec sleep 60");
        auto tool = std::make_unique<FolderShortcutsTool>();
        Task run =
            tool->execute({QStringLiteral("run"), QStringLiteral("Long one")}, [](const auto &) {});
        QTRY_VERIFY(QFile::exists(m_mark));
        run.reset();
        tool.reset();
        int ends = 0;
        QCOMPARE(m_tool.resume([&ends] { ++ends; }), QStringLiteral("Long one"));
        m_tool.stopRuns();
        QTRY_COMPARE(ends, 1);
        QVERIFY(m_tool.resume({}).isNull());
    }

    void folderIsCreatedOnceWithAnExampleShortcut() {
        QCOMPARE(prepare(), QString());
        QCOMPARE(result({QStringLiteral("list")}), "0 Say hello");
        QVERIFY(m_folder.remove(QStringLiteral("Say hello.sh")));
        QCOMPARE(prepare(), QString());
        QCOMPARE(result({QStringLiteral("list")}), "0 ");
    }

private:
    /// The exit status, and stdout or the shortcut's file.
    QByteArray result(const QStringList &arguments) {
        std::optional<ShortcutsTool::Result> got;
        const Task task =
            m_tool.execute(arguments, [&](const ShortcutsTool::Result &result) { got = result; });
        if (!QTest::qWaitFor([&] { return got.has_value(); })) {
            return "nothing";
        }
        return QByteArray::number(got->status) + ' ' +
               (got->output.toUtf8() + readFile(m_mark)).trimmed();
    }
    QString prepare() {
        std::optional<QString> error;
        m_tool.prepareFolder([&](const QString &why) { error = why; });
        return QTest::qWaitFor([&] { return error.has_value(); }) ? *error
                                                                  : QStringLiteral("nothing");
    }

    const QDir m_data{qEnvironmentVariable("XDG_DATA_HOME")};
    QDir m_folder{m_data.filePath(QStringLiteral("perchly/shortcuts"))};
    const QString m_mark = m_data.filePath(QStringLiteral("mark"));
    FolderShortcutsTool m_tool;
};

QTEST_GUILESS_MAIN(ShortcutsTest)
#include "ShortcutsTest.moc"
