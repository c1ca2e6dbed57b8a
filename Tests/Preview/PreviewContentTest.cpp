#include "PreviewContent.h"
#include "TestFiles.h"
#include "TestPictures.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

using namespace perchly;

namespace {

using Kind = FileFacts::Kind;

QByteArray pdf() {
    QBuffer document;
    document.open(QIODevice::WriteOnly);
    QPdfWriter writer(&document);
    QPainter(&writer).drawText(100, 100, QStringLiteral("text"));
    return document.data();
}

} // namespace

class PreviewContentTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void contentDecidesTheKindOfPreview() {
        struct Case {
            const char *name;
            QByteArray bytes;
            Kind kind;
        };
        const Case cases[] = {
            {"picture.png", encodedPicture({40, 30}, "PNG"), Kind::Picture},
            {"PNG by another name.jpg", encodedPicture({40, 30}, "PNG"), Kind::Picture},
            {"ends early.png", encodedPicture({400, 300}, "PNG").left(60), Kind::Other},
            {"needs 160 GB.ppm", "P6\n200000 200000\n255\nxxxxxx", Kind::Other},
            {"drawing.svgz",
             QByteArray::fromBase64("H4sIAAAAAAACA7MpLktXKM9MKcmwVbdUV8hIzUzPKAEx9e0AGAnoBRsAAAA="),
             Kind::Picture},
            {"drawing of a pipe.svg", "<svg width='9' height='9'><image href='/dev/zero'/></svg>",
             Kind::Other},
            {"drawing of a pipe.svgz",
             QByteArray::fromBase64("H4sIAAAAAAACA7MpLktXKM9MKcmwVbdUV8hIzUzPKAEx7WwycxPTUxUyilLTbN"
                                    "X1U1LL9KtSi/LV9e1s9IF67ABQsVfgOQAAAA=="),
             Kind::Other},
            {"page shown as text.html", "<script>1</script>", Kind::Text},
            {"empty.txt", "", Kind::Text},
            {"binary.txt", QByteArray(100, '\0'), Kind::Other},
            {"another encoding.txt", "caf\xe9", Kind::Text},
            {"manifest.mp4", "#EXTM3U\nhttp://127.0.0.1/a.ts", Kind::Text},
            {"not a manifest.mp4", QByteArray(100, '\0'), Kind::Media},
            {"document.pdf", pdf(), Kind::Pdf},
            {"ends early.pdf", "%PDF-1.4", Kind::Other},
        };
        for (const auto &[name, bytes, kind] : cases) {
            const QTemporaryDir folder;
            const QString path = folder.filePath(QLatin1StringView(name));
            writeFile(path, bytes);
            const PreviewContent content = loadPreview(QUrl::fromLocalFile(path), {20, 20});
            QVERIFY2(content.facts.kind == kind, name);
            QVERIFY2(content.picture.isNull() == (kind != Kind::Picture), name);
            QVERIFY2(content.picture.width() <= 20, name);
        }
    }

    void directionMarksAreDroppedFromNames() {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("photo\u202egnp.exe"));
        writeFile(path, "MZ");
        QCOMPARE(factsOf(QUrl::fromLocalFile(path)).name, QStringLiteral("photognp.exe"));
    }

    void readsOnlyTheStartOfALargeText() {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("large.txt"));
        writeFile(path, QByteArray(2 << 20, 'x'));
        QVERIFY(QFile::resize(path, 1 << 30));
        const PreviewContent content = loadPreview(QUrl::fromLocalFile(path), {20, 20});
        QCOMPARE(content.facts.kind, Kind::Text);
        QVERIFY(content.text.size() <= (1 << 20) + 1000);
        QVERIFY2(content.text.indexOf(u'\n') <= 4000, "a line without an end");
    }

    void opensOnlyRegularFiles() {
        const QTemporaryDir folder;
        const QString pipe = folder.filePath(QStringLiteral("pipe.png"));
        QCOMPARE(mkfifo(qPrintable(pipe), 0600), 0);
        const QString missing = folder.filePath(QStringLiteral("missing.png"));
        for (const QString &path : {pipe, QStringLiteral("/dev/zero"), folder.path(), missing}) {
            const PreviewContent content = loadPreview(QUrl::fromLocalFile(path), {20, 20});
            QCOMPARE(content.facts.kind, Kind::Other);
        }
    }
};

QTEST_MAIN(PreviewContentTest)
#include "PreviewContentTest.moc"
