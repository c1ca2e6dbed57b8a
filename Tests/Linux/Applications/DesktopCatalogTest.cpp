#include "DesktopCatalog.h"
#include "EndlessFolders.h"
#include "TestFiles.h"

#include <QSignalSpy>
#include <QThread>

using namespace perchly;

class DesktopCatalogTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        const QString endless = QDir::tempPath() + QStringLiteral("/endless/applications");
        QVERIFY(QDir().mkpath(endless));
        for (const QString &link :
             {endless + QStringLiteral("/a"), endless + QStringLiteral("/b")}) {
            // 2^40 subfolders for GIO, which would never answer
            QVERIFY(QFile::link(endless, link));
        }
        qputenv("XDG_DATA_DIRS", QFile::encodeName(QFileInfo(endless).path()));
        hideEndlessApplicationFolders();
        QCOMPARE(qEnvironmentVariable("XDG_DATA_DIRS"), QFileInfo(endless).path());
        qputenv("LC_ALL", "de_AT.UTF-8");
        m_folder.mkpath(QStringLiteral("."));
    }

    void applicationsAreSortedLikeAFileBrowser() {
        installApplication(QStringLiteral("z1"), "Exec=true\nName=alpha");
        installApplication(QStringLiteral("z2"), "Exec=true\nName=App 2");
        installApplication(QStringLiteral("z3"), "Exec=true\nName=Base\nName[de]=App 10");
        installApplication(QStringLiteral("z4"), "Exec=true\nName=éclair");
        installApplication(QStringLiteral("no display"), "Exec=true\nName=Hidden\nNoDisplay=true");
        QCOMPARE(found(), QStringList({QStringLiteral("alpha"), QStringLiteral("App 2"),
                                       QStringLiteral("App 10"), QStringLiteral("éclair")}));
    }

    void namesForSearchesAreRead() {
        installApplication(QStringLiteral("z1"), "Exec=/bin/true %U\nName=alpha\nGenericName=Tool\n"
                                                 "Keywords=one;two;");
        QString names;
        m_catalog.find([&](const auto &applications) { names = applications.at(0).searchText; });
        QTRY_COMPARE(names, QStringLiteral("alpha\ntool\none\ntwo\ntrue"));
    }

    void changesAreAnnounced() {
        const qsizetype before = found().size();
        QSignalSpy changed(&m_catalog, &ApplicationCatalog::changed);
        for (int number = 0; number < 100; ++number) {
            installApplication(QStringLiteral("new%1").arg(number), "Exec=true");
        }
        QVERIFY(changed.wait());
        QVERIFY(!changed.wait(700));
        QCOMPARE(found().size(), before + 100);
        QVERIFY(!changed.wait(700)); // reading alone announces no change
        QVERIFY(m_folder.remove(QStringLiteral("new2.desktop")));
        QVERIFY(changed.wait());
        QCOMPARE(found().size(), before + 99);
    }

    void entriesInAnyFolderAreDescribed() {
        const QString elsewhere = QDir::tempPath() + QStringLiteral("/elsewhere.desktop");
        writeFile(elsewhere, "[Desktop Entry]\nType=Application\nName=Else\nExec=not-there\n");
        QStringList names;
        m_catalog.describe({QStringLiteral("/gone.desktop"), elsewhere,
                            desktopEntryPath(QStringLiteral("no display"))},
                           [&](const auto &described) { names = namesOf(described); });
        QTRY_COMPARE(names, QStringList({QStringLiteral("gone"), QStringLiteral("Else"),
                                         QStringLiteral("Hidden")}));
    }

    void destroyedCatalogNeverCompletes() {
        bool told = false;
        std::make_unique<DesktopCatalog>()->find([&](const auto &) { told = true; });
        QTest::qWait(50);
        QVERIFY(!told);
    }

private:
    static QStringList namesOf(const QList<FoundApplication> &applications) {
        QStringList names;
        for (const FoundApplication &application : applications) {
            names.append(application.name);
        }
        return names;
    }
    QStringList found() {
        std::optional<QStringList> names;
        m_catalog.find([&](const QList<FoundApplication> &applications) {
            QCOMPARE(QThread::currentThread(), thread());
            names = namesOf(applications);
        });
        return QTest::qWaitFor([&] { return names.has_value(); }) ? *names : QStringList();
    }

    QDir m_folder{qEnvironmentVariable("XDG_DATA_HOME") + QStringLiteral("/applications")};
    DesktopCatalog m_catalog;
};

QTEST_GUILESS_MAIN(DesktopCatalogTest)
#include "DesktopCatalogTest.moc"
