#include "PreviewContent.h"
#include "TestFiles.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QPainter>
#include <QPdfWriter>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

using namespace perchly;

namespace {

using Kind = FileFacts::Kind;

QByteArray png(int width, int height) {
    QImage picture(width, height, QImage::Format_RGB32);
    picture.fill(Qt::red);
    QBuffer buffer;
    picture.save(&buffer, "PNG");
    return buffer.data();
}

QByteArray pdf() {
    QBuffer document;
    document.open(QIODevice::WriteOnly);
    QPdfWriter writer(&document);
    QPainter(&writer).drawText(100, 100, QStringLiteral("text"));
    return document.data();
}

/// The beginning of a picture that would take 160 GB.
QByteArray hugePicture() {
    return QByteArrayLiteral("P6\n200000 200000\n255\n") + QByteArray(1000, 'x');
}

} // namespace

class PreviewContentTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void showsWhatCanBeShown_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("kind");
        const auto row = [](const char *title, const char *name, const QByteArray &bytes,
                            Kind kind) {
            QTest::newRow(title) << QString::fromLatin1(name) << bytes << int(kind);
        };
        row("a picture", "a.png", png(40, 30), Kind::Picture);
        row("a picture by another name", "a.jpg", png(40, 30), Kind::Picture);
        row("a picture that ends early", "a.png", png(400, 300).left(60), Kind::Other);
        row("a picture of garbage", "a.png", QByteArray(3000, 'x'), Kind::Other);
        row("a picture too large for any memory", "a.ppm", hugePicture(), Kind::Other);
        row("a text", "a.txt", "some text\r\n", Kind::Text);
        row("a script, which is only read", "a.sh", "#!/bin/sh\ntouch ran\n", Kind::Text);
        row("a page, which is only read", "a.html", "<script>1</script>", Kind::Text);
        row("an empty text", "a.txt", "", Kind::Text);
        row("a text that is none", "a.txt", QByteArray(100, '\0'), Kind::Other);
        row("a text in another encoding", "a.txt", "caf\xe9", Kind::Text);
        row("a document", "a.pdf", pdf(), Kind::Pdf);
        row("a document that ends early", "a.pdf", "%PDF-1.4", Kind::Other);
        row("sound", "a.mp3", "ID3", Kind::Media);
        row("a program", "a.out",
            QByteArray("\x7f"
                       "ELF\x02\x01\x01\0\0",
                       9),
            Kind::Other);
    }

    void showsWhatCanBeShown() {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        QFETCH(int, kind);
        const QTemporaryDir folder;
        const QString path = folder.filePath(name);
        writeFile(path, bytes);
        const PreviewContent content = loadPreview(QUrl::fromLocalFile(path), {20, 20});
        QCOMPARE(int(content.facts.kind), kind);
        QCOMPARE(content.facts.name, name);
        QVERIFY(content.facts.details.contains(QStringLiteral(" · ")));
        QCOMPARE(content.picture.size(),
                 content.facts.kind == Kind::Picture ? QSize(20, 15) : QSize(0, 0));
        QVERIFY(!QFile::exists(folder.filePath(QStringLiteral("ran"))));
    }

    void marksOfDirectionDoNotTurnAnExtensionAround() {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("photo\u202egnp.exe"));
        writeFile(path, "MZ");
        QCOMPARE(factsOf(QUrl::fromLocalFile(path)).name, QStringLiteral("photognp.exe"));
    }

    void onlyTheBeginningOfALargeFileIsRead() {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("large.txt"));
        writeFile(path, QByteArray(2 << 20, 'x'));
        QVERIFY(QFile::resize(path, 1 << 30));
        QElapsedTimer timer;
        timer.start();
        const PreviewContent content = loadPreview(QUrl::fromLocalFile(path), {20, 20});
        QVERIFY(timer.elapsed() < 1000);
        QCOMPARE(content.facts.kind, Kind::Text);
        QVERIFY(content.text.size() <= (1 << 20) + 1000);
        QVERIFY2(content.text.indexOf(u'\n') <= 4000, "a line without an end");
    }

    void whatIsNoOrdinaryFileIsNotOpened() {
        const QTemporaryDir folder;
        const QString pipe = folder.filePath(QStringLiteral("pipe.png"));
        QCOMPARE(mkfifo(qPrintable(pipe), 0600), 0);
        const QStringList paths{pipe, QStringLiteral("/dev/zero"), folder.path(),
                                folder.filePath(QStringLiteral("gone.png"))};
        for (const QString &path : paths) {
            const PreviewContent content = loadPreview(QUrl::fromLocalFile(path), {20, 20});
            QCOMPARE(content.facts.kind, Kind::Other);
            QVERIFY(!content.facts.details.isEmpty());
        }
        const auto link = loadPreview(QUrl(QStringLiteral("https://example.org/a.png")), {20, 20});
        QCOMPARE(link.facts.name, QStringLiteral("https://example.org/a.png"));
    }
};

QTEST_MAIN(PreviewContentTest)
#include "PreviewContentTest.moc"
