#include "IconTheme.h"
#include "GioApplications.h"
#include "TestFiles.h"

#include <QTemporaryDir>
#include <QThreadPool>

#include <sys/stat.h>

#include <atomic>

namespace perchly {

class IconThemeTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() {
        m_folder = std::make_unique<QTemporaryDir>();
        write("Shine/index.theme", "[Icon Theme]\nName=Shine\nInherits=Plain,Shine,Nowhere\n"
                                   "Directories=16/apps,48/apps,any/apps\n"
                                   "[16/apps]\nSize=16\n[48/apps]\nSize=48\n"
                                   "[any/apps]\nSize=64\nMinSize=8\nMaxSize=512\nType=Scalable\n");
        write("Plain/index.theme", "[Icon Theme]\nName=Plain\nInherits=Shine\nDirectories=32/apps\n"
                                   "[32/apps]\nSize=32\n");
        write("hicolor/index.theme",
              "[Icon Theme]\nDirectories=64x64/apps\n[64x64/apps]\nSize=64\n");
    }

    void theBestFileIsFound_data() {
        QTest::addColumn<QStringList>("files");
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("side");
        QTest::addColumn<QString>("found");
        const auto row = [](const char *sentence, const QStringList &files, const char *name,
                            int side, const char *found) {
            QTest::newRow(sentence)
                << files << QString::fromLatin1(name) << side << QString::fromLatin1(found);
        };
        const auto list = [](const char *files) {
            return QString::fromLatin1(files).split(QLatin1Char(' '));
        };
        const QStringList sizes = list("Shine/16/apps/a.png Shine/48/apps/a.png");
        row("rather too large than too small", sizes, "a", 30, "Shine/48/apps/a.png");
        row("an ending in the name does not count", sizes, "a.png", 16, "Shine/16/apps/a.png");
        row("a picture for every size", list("Shine/16/apps/a.png Shine/any/apps/a.svg"), "a", 100,
            "Shine/any/apps/a.svg");
        row("the theme's own before an inherited one",
            list("Plain/32/apps/a.png Shine/16/apps/a.png"), "a", 32, "Shine/16/apps/a.png");
        row("an inherited one before the common one",
            list("Plain/32/apps/a.png hicolor/64x64/apps/a.png"), "a", 64, "Plain/32/apps/a.png");
        row("the common one", list("hicolor/64x64/apps/org.x.App.png"), "org.x.App", 50,
            "hicolor/64x64/apps/org.x.App.png");
        row("one outside of all themes", list("a.xpm"), "a", 50, "a.xpm");
        row("no way out of the folders", list("a.png"), "../a", 50, "");
    }

    void theBestFileIsFound() {
        QFETCH(QStringList, files);
        QFETCH(QString, name);
        QFETCH(int, side);
        QFETCH(QString, found);
        for (const QString &file : files) {
            write(file.toLatin1().constData(), "");
        }
        IconTheme theme(QStringLiteral("Shine"), {m_folder->path()});
        QCOMPARE(theme.file(name, side), found.isEmpty() ? found : m_folder->filePath(found));
    }

    void picturesFitTheSize() {
        save("wide.png", {300, 150});
        save("small.png", {16, 16});
        write("drawn.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='16' height='16'>"
                           "<rect width='16' height='16' fill='#f00'/></svg>");
        IconTheme theme({}, {m_folder->path()});
        QCOMPARE(theme.image(QStringLiteral("wide"), 100).size(), QSize(100, 50));
        QCOMPARE(theme.image(QStringLiteral("small"), 100).size(), QSize(16, 16));
        const QImage drawn = theme.image(m_folder->filePath(QStringLiteral("drawn.svg")), 100);
        QCOMPARE(drawn.size(), QSize(100, 100));
        QCOMPARE(drawn.pixelColor(99, 99), QColor(Qt::red));
    }

    void whatCannotBeReadHasNoPicture() {
        write("broken.png", "no picture");
        write("app.desktop", "[Desktop Entry]\nType=Application\nName=A\nIcon=broken\n");
        write("torn.desktop", "\0\1\2");
        const QString pipe = m_folder->filePath(QStringLiteral("pipe.png"));
        QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        IconTheme theme({}, {m_folder->path()});
        QVERIFY(theme.image(QStringLiteral("broken"), 50).isNull());
        QVERIFY(theme.image(QStringLiteral("pipe"), 50).isNull());
        GioApplications applications;
        for (const char *entry : {"app", "torn", "missing"}) {
            const QString path =
                m_folder->filePath(QString::fromLatin1(entry)) + QStringLiteral(".desktop");
            QVERIFY2(applications.icon(path, 50).isNull(), entry);
        }
    }

    void picturesAreReadOnManyThreadsAtOnce() {
        write("hicolor/64x64/apps/themed.png", ""); // makes the folder
        save("hicolor/64x64/apps/themed.png", {64, 64});
        IconTheme theme(QStringLiteral("Shine"), {m_folder->path()});
        std::atomic<int> read = 0;
        QThreadPool pool;
        for (int round = 0; round < 40; ++round) {
            pool.start([&] {
                read += theme.image(QStringLiteral("themed"), 64).size() == QSize(64, 64) ? 1 : 0;
            });
        }
        pool.waitForDone();
        QCOMPARE(read, 40);
    }

    void anEntrysPictureIsRead() {
        save("mine.png", {64, 64});
        write("mine.desktop",
              "[Desktop Entry]\nType=Application\nName=A\nExec=not-installed\nIcon=" +
                  m_folder->filePath(QStringLiteral("mine.png")).toUtf8() + '\n');
        const QString entry = m_folder->filePath(QStringLiteral("mine.desktop"));
        QCOMPARE(GioApplications().icon(entry, 32).size(), QSize(32, 32));
    }

private:
    void write(const char *name, const QByteArray &text) {
        writeFile(m_folder->filePath(QString::fromLatin1(name)), text);
    }

    void save(const char *name, const QSize &size) {
        QImage picture(size, QImage::Format_ARGB32);
        picture.fill(Qt::blue);
        QVERIFY(picture.save(m_folder->filePath(QString::fromLatin1(name))));
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

} // namespace perchly

QTEST_MAIN(perchly::IconThemeTest)
#include "IconThemeTest.moc"
