#include "IconTheme.h"
#include "GioApplications.h"
#include "TestFiles.h"

#include <QTemporaryDir>

#include <sys/stat.h>

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
        write("Adwaita/index.theme", "[Icon Theme]\nDirectories=8/apps\n[8/apps]\nSize=8\n");
        write("hicolor/index.theme",
              "[Icon Theme]\nDirectories=64x64/apps\n[64x64/apps]\nSize=64\n");
    }

    void fileWithTheBestSizeIsFound() {
        struct Row {
            const char *files;
            const char *name;
            int side;
            const char *found;
            const char *theme = "Shine";
        };
        const char *sizes = "Shine/16/apps/a.png Shine/48/apps/a.png";
        for (const Row &row : {
                 Row{sizes, "a", 30, "Shine/48/apps/a.png"}, // larger is preferred
                 Row{sizes, "a.png", 16, "Shine/16/apps/a.png"},
                 Row{"Shine/16/apps/b.png Shine/any/apps/b.svg", "b", 100, "Shine/any/apps/b.svg"},
                 Row{"Plain/32/apps/c.png Shine/16/apps/c.png", "c", 32, "Shine/16/apps/c.png"},
                 Row{"Plain/32/apps/d.png hicolor/64x64/apps/d.png", "d", 64,
                     "Plain/32/apps/d.png"},
                 Row{"e.xpm", "e", 50, "e.xpm"},
                 Row{"Adwaita/8/apps/f.png", "f", 50, ""},
                 Row{"Adwaita/8/apps/f.png", "f", 50, "Adwaita/8/apps/f.png", "Missing"},
                 Row{"Adwaita/8/apps/f.png", "f", 50, "Adwaita/8/apps/f.png", "hicolor"},
             }) {
            for (const QByteArray &file : QByteArray(row.files).split(' ')) {
                write(file.constData(), "");
            }
            IconTheme theme(QString::fromLatin1(row.theme), {m_folder->path()});
            const QString found = theme.file(QString::fromLatin1(row.name), row.side);
            QCOMPARE(found.mid(m_folder->path().size() + 1), QString::fromLatin1(row.found));
        }
    }

    void picturesAreScaledToTheSize() {
        save("wide.png", {300, 150});
        write("drawn.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='16' height='16'>"
                           "<rect width='16' height='16' fill='#f00'/></svg>");
        IconTheme theme({}, {m_folder->path()});
        QCOMPARE(theme.image(QStringLiteral("wide"), 100).size(), QSize(100, 50));
        const QImage drawn = theme.image(m_folder->filePath(QStringLiteral("drawn.svg")), 100);
        QCOMPARE(drawn.size(), QSize(100, 100));
        QCOMPARE(drawn.pixelColor(99, 99), QColor(Qt::red));
    }

    void svgThatNamesOtherFilesIsNotDrawn() {
        const QString pipe = m_folder->filePath(QStringLiteral("pipe"));
        QCOMPARE(mkfifo(qPrintable(pipe), 0600), 0);
        const QByteArray link = "<svg width='9' height='9' xmlns:xlink='x'><image width='9' "
                                "height='9' xlink:href='%1'/></svg>";
        const QByteArray toPipe = QByteArray(link).replace("%1", pipe.toUtf8());
        IconTheme theme({}, {m_folder->path()});
        for (const QByteArray &svg : {
                 toPipe,
                 QByteArray(link).replace("%1", "data:image/png;base64," + toPipe.toBase64()),
                 "<?xml-stylesheet type=\"text/css\" href=\"" + pipe.toUtf8() + "\"?>" + link,
             }) {
            write("a.svg", svg);
            QVERIFY(theme.image(QStringLiteral("a"), 9).isNull());
        }
        write("a.svg", QByteArray(link).replace("%1", "data:image/png;base64,"));
        QCOMPARE(theme.image(QStringLiteral("a"), 9).size(), QSize(9, 9));
    }

    void desktopEntryIconIsRead() {
        save("mine.png", {64, 64});
        write("broken.png", "no picture");
        GioApplications applications;
        for (const char *name : {"mine", "broken", "missing"}) {
            const QByteArray picture =
                m_folder->filePath(QString::fromLatin1(name)).toUtf8() + ".png";
            write("a.desktop", "[Desktop Entry]\nName=A\nExec=not-installed\nIcon=" + picture);
            const QSize size =
                applications.icon(m_folder->filePath(QStringLiteral("a.desktop")), 32, {}).size();
            QCOMPARE(size, qstrcmp(name, "mine") == 0 ? QSize(32, 32) : QSize(0, 0));
        }
        write("a.desktop", "torn");
        QVERIFY(
            applications.icon(m_folder->filePath(QStringLiteral("a.desktop")), 32, {}).isNull());
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
