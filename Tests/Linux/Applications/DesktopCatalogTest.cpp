#include "DesktopCatalog.h"
#include "TestFiles.h"

#include <QSignalSpy>
#include <QThread>

#include <functional>

using namespace perchly;

namespace {

const QByteArray entryText("[Desktop Entry]\nType=Application\nName=Example\nExec=true\n");

bool write(const QString &path, const QByteArray &text) {
    writeFile(path, text);
    return QFile::exists(path);
}

} // namespace

class DesktopCatalogTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        qputenv("XDG_DATA_DIRS", "/nowhere/at/all");
        QVERIFY(QDir(m_folder).removeRecursively());
        QVERIFY(write(m_folder.filePath(QStringLiteral("a.desktop")), entryText));
        QVERIFY(write(m_folder.filePath(QStringLiteral("inside/b.desktop")), entryText));
    }

    void answersOnTheMainThread() {
        DesktopCatalog catalog;
        int answers = 0;
        const auto count = [&](const QList<FoundApplication> &found) {
            QCOMPARE(QThread::currentThread(), thread());
            QCOMPARE(found.size(), 2);
            ++answers;
        };
        for (int asked = 0; asked < 5; ++asked) {
            catalog.find(count);
        }
        QCOMPARE(answers, 0);
        QTRY_COMPARE(answers, 5);

        // An entry that a person has chosen is named, also one that menus do not show.
        const QString hidden = m_folder.filePath(QStringLiteral("h.desktop"));
        QVERIFY(write(hidden, entryText + "NoDisplay=true\n"));
        QStringList names;
        catalog.describe({QStringLiteral("/gone.desktop"), hidden},
                         [&](const QList<FoundApplication> &found) {
                             for (const FoundApplication &application : found) {
                                 names.append(application.name);
                             }
                         });
        QTRY_COMPARE(names, QStringList({QStringLiteral("gone"), QStringLiteral("Example")}));
    }

    void announcesWhatChangesMenus_data() {
        using Change = std::function<bool(const QDir &)>;
        QTest::addColumn<Change>("change");
        QTest::addColumn<int>("left");
        const auto row = [](const char *name, int left, const Change &change) {
            QTest::newRow(name) << change << left;
        };
        const auto at = [](const QDir &folder, const char *name) {
            return folder.filePath(QString::fromUtf8(name));
        };
        row("a new entry in a subfolder", 3,
            [at](const QDir &folder) { return write(at(folder, "inside/c.desktop"), entryText); });
        row("an entry that is hidden", 1, [at](const QDir &folder) {
            return write(at(folder, "a.desktop"), entryText + "Hidden=true\n");
        });
        row("an entry that goes", 1,
            [at](const QDir &folder) { return QFile::remove(at(folder, "a.desktop")); });
        row("an entry that is put in another's place", 1, [at](const QDir &folder) {
            const QString aside = folder.filePath(QStringLiteral("../aside"));
            return write(aside, "nonsense") && QFile::remove(at(folder, "a.desktop")) &&
                   QFile::rename(aside, at(folder, "a.desktop"));
        });
        row("a new folder", 3, [at](const QDir &folder) {
            return write(at(folder, "new/deep/c.desktop"), entryText);
        });
        row("a link to a folder", 3, [at](const QDir &folder) {
            return QFile::link(at(folder, "inside"), at(folder, "link"));
        });
        row("the whole folder goes", 0,
            [](const QDir &folder) { return QDir(folder).removeRecursively(); });
    }

    void announcesWhatChangesMenus() {
        QFETCH(const std::function<bool(const QDir &)>, change);
        QFETCH(const int, left);
        DesktopCatalog catalog;
        QCOMPARE(search(catalog), 2);
        QSignalSpy changed(&catalog, &ApplicationCatalog::changed);
        QVERIFY(change(m_folder));
        QVERIFY(changed.wait());
        QCOMPARE(search(catalog), left);
        // And it still listens to whatever there is now.
        QVERIFY(write(m_folder.filePath(QStringLiteral("later.desktop")), entryText));
        QVERIFY(changed.wait());
        QCOMPARE(search(catalog), left + 1);
    }

    void waitsForFoldersThatAreNotThereYet() {
        const QDir system(m_data.filePath(QStringLiteral("later/share")));
        QVERIFY(QDir(m_data.filePath(QStringLiteral("later"))).removeRecursively());
        qputenv("XDG_DATA_DIRS", QFile::encodeName(system.path()));
        DesktopCatalog catalog;
        QCOMPARE(search(catalog), 2);
        QSignalSpy changed(&catalog, &ApplicationCatalog::changed);
        QVERIFY(write(m_data.filePath(QStringLiteral("nothing of interest")), "x"));
        QVERIFY(!changed.wait(700));
        QVERIFY(system.mkpath(QStringLiteral(".")));
        QVERIFY(changed.wait());
        QCOMPARE(search(catalog), 2);
        QVERIFY(write(system.filePath(QStringLiteral("applications/c.desktop")), entryText));
        QVERIFY(changed.wait());
        QCOMPARE(search(catalog), 3);
    }

    void announcesABurstOnce() {
        DesktopCatalog catalog;
        QCOMPARE(search(catalog), 2);
        QSignalSpy changed(&catalog, &ApplicationCatalog::changed);
        for (int number = 0; number < 300; ++number) {
            QVERIFY(write(m_folder.filePath(QStringLiteral("n%1.desktop").arg(number)), entryText));
        }
        QVERIFY(changed.wait());
        QTest::qWait(700);
        QCOMPARE(changed.count(), 1);
        // Reading is no change.
        QCOMPARE(search(catalog), 302);
        QTest::qWait(700);
        QCOMPARE(changed.count(), 1);
    }

    void tellsNobodyOnceItIsDestroyed() {
        bool told = false;
        {
            DesktopCatalog catalog;
            catalog.find([&](const auto &) { told = true; });
            catalog.describe({QStringLiteral("/a")}, [&](const auto &) { told = true; });
        }
        QTest::qWait(50);
        QVERIFY(!told);
    }

private:
    [[nodiscard]] static qsizetype search(DesktopCatalog &catalog) {
        qsizetype count = -1;
        catalog.find([&](const QList<FoundApplication> &found) { count = found.size(); });
        return QTest::qWaitFor([&] { return count >= 0; }) ? count : -1;
    }

    const QDir m_data{qEnvironmentVariable("XDG_DATA_HOME")};
    const QDir m_folder{m_data.filePath(QStringLiteral("applications"))};
};

QTEST_GUILESS_MAIN(DesktopCatalogTest)
#include "DesktopCatalogTest.moc"
