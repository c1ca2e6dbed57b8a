#include "Announcements.h"
#include "FakeHosts.h"
#include "Productivity.h"
#include "TestRegistry.h"

#include <QBuffer>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

namespace perchly {

namespace {

QList<QUrl> urls(const QStringList &texts) {
    QList<QUrl> result;
    for (const QString &text : texts) {
        result.append(QUrl(text));
    }
    return result;
}

} // namespace

class HeldFilesTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void holding_data() {
        QTest::addColumn<QStringList>("before");
        QTest::addColumn<QStringList>("added");
        QTest::addColumn<QStringList>("after");
        const auto row = [](const char *name, const QStringList &before, const QStringList &added,
                            const QStringList &after) {
            QTest::newRow(name) << before << added << after;
        };
        const QString file = QStringLiteral("file:///tmp/%C3%A4%20b.txt");
        const QString folder = QStringLiteral("file:///tmp/folder/");
        const QString link = QStringLiteral("https://example.org/a?b=1#c");
        const QString plainLink = QStringLiteral("http://example.org");

        row("files, folders and links are held in order", {}, {file, link, folder, plainLink},
            {file, link, folder, plainLink});
        row("what is held already keeps its place", {file, link}, {link, folder, file},
            {file, link, folder});
        row("one given twice is held once", {}, {link, link}, {link});
        row("one machine's own name makes no other file", {QStringLiteral("file:///tmp/a")},
            {QStringLiteral("file://localhost/tmp/a")}, {QStringLiteral("file:///tmp/a")});
        row("one of which more signs are encoded is no other file",
            {QStringLiteral("file:///tmp/a%5B1%5D%28b%29%3B%26")},
            {QUrl::fromLocalFile(QStringLiteral("/tmp/a[1](b);&")).toString(QUrl::FullyEncoded)},
            {QStringLiteral("file:///tmp/a[1](b);&")});
        row("a name that is not UTF-8 stays as it is", {},
            {QStringLiteral("file:///tmp/%FF%5B"), QStringLiteral("file:///tmp/%FE%5B")},
            {QStringLiteral("file:///tmp/%FF%5B"), QStringLiteral("file:///tmp/%FE%5B")});
        row("links that differ in a slash are two", {plainLink},
            {plainLink + QLatin1StringView("/")}, {plainLink, plainLink + QLatin1StringView("/")});
        for (const char *other :
             {"ftp://example.org/a", "javascript:alert(1)", "httpss://example.org", "/tmp/a.txt"}) {
            row(qPrintable(QStringLiteral("passed over: “%1”").arg(QString::fromLatin1(other))), {},
                {QString::fromLatin1(other), link}, {link});
        }
    }

    void holding() {
        QFETCH(QStringList, before);
        QFETCH(QStringList, added);
        QFETCH(QStringList, after);
        FakeHosts fake;
        Productivity productivity(fake.hosts);
        productivity.hold(urls(before));
        productivity.hold(urls(added));
        QCOMPARE(productivity.held(), urls(after));
    }

    void onlyAChangeIsAnnounced() {
        FakeHosts fake;
        Productivity productivity(fake.hosts);
        Announcements announcements(productivity);
        const QList<QUrl> links =
            urls({QStringLiteral("https://a.example/"), QStringLiteral("https://b.example/")});
        productivity.hold(links);
        QCOMPARE(announcements.take(), QStringList(QStringLiteral("heldChanged")));
        productivity.hold(links);
        productivity.hold(urls({QStringLiteral("ftp://a.example/")}));
        productivity.hold({});
        QCOMPARE(announcements.take(), QStringList());
    }

    void whatIsDroppedSaysHowItsSchemesAreWritten() {
        FakeHosts fake;
        Productivity productivity(fake.hosts);
        productivity.holdDropped(
            QStringLiteral("# a comment\r\nHTTPS://a.example/\r\nhttps://b.example/\r\n\r\n"
                           "FILE:///tmp/a\r\nfile://elsewhere/tmp/b\nhttp://c.example/\njunk"));
        QCOMPARE(productivity.held(),
                 urls({QStringLiteral("https://b.example/"), QStringLiteral("file:///tmp/a"),
                       QStringLiteral("http://c.example/")}));
        QVERIFY(productivity.holdDropped(QStringLiteral("HTTP://d.example/")));
        QVERIFY(!productivity.holdDropped(QStringLiteral("# nothing\njunk")));
        productivity.copyItems(productivity.held());
        QCOMPARE(fake.pasteboard.offered.urls, productivity.held());
        QCOMPARE(productivity.pasteboardCount(), fake.pasteboard.changeCount());
    }

    void aLinkIsTakenAsItWasTyped_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<bool>("taken");
        const auto row = [](const char *name, const char *typed, bool taken) {
            QTest::newRow(name) << QString::fromUtf8(typed) << taken;
        };
        row("with its scheme", "https://example.org/ä?q=1#part", true);
        row("without encryption", "http://example.org", true);
        row("with a port and a user", "https://a@example.org:8080/", true);
        row("without its scheme", "example.org", false);
        row("nothing but a scheme's name", "https", false);
        row("with the scheme in capitals", "HTTPS://example.org", false);
        row("with a blank before it", " https://example.org", false);
        row("of another scheme", "ftp://example.org", false);
        row("that only looks like one", "httpsx://example.org", false);
        row("with a port that is none", "https://example.org:port/", false);
        row("nothing", "", false);
    }

    void aLinkIsTakenAsItWasTyped() {
        QFETCH(QString, typed);
        QFETCH(bool, taken);
        FakeHosts fake;
        Productivity productivity(fake.hosts);
        QCOMPARE(productivity.addLink(typed), taken);
        QCOMPARE(productivity.held(), taken ? urls({typed}) : QList<QUrl>());
    }

    void filesAreChosenInADialog() {
        FakeHosts fake;
        Productivity productivity(fake.hosts);
        productivity.addFiles();
        productivity.addFiles();
        QVERIFY(fake.openPanel.open().has_value());
        fake.openPanel.choose({});
        QVERIFY(!fake.openPanel.open().has_value());
        QCOMPARE(productivity.held(), QList<QUrl>());
        const QList<QUrl> chosen = urls({QStringLiteral("file:///a"), QStringLiteral("file:///b")});
        productivity.addFiles();
        fake.openPanel.choose(chosen);
        QCOMPARE(productivity.held(), chosen);
        productivity.removeHeld(chosen.first());
        QCOMPARE(productivity.held(), chosen.mid(1));
        productivity.clearHeld();
        QCOMPARE(productivity.held(), QList<QUrl>());
    }

    void rowsAreNamedAfterTheirFile_data() {
        QTest::addColumn<QUrl>("url");
        QTest::addColumn<QString>("label");
        const auto row = [](const char *name, const char *url, const char *label) {
            QTest::newRow(name) << QUrl(QString::fromUtf8(url)) << QString::fromUtf8(label);
        };
        row("a file", "file:///tmp/a%20%C3%A4.txt", "a ä.txt");
        row("a name with a percent sign", "file:///tmp/100%25.txt", "100%.txt");
        row("a folder", "file:///tmp/folder/", "folder");
        row("the whole disk", "file:///", "/");
        row("a link", "https://example.org/a%20b", "https://example.org/a%20b");
    }

    void rowsAreNamedAfterTheirFile() {
        QFETCH(QUrl, url);
        QTEST(Productivity::labelOf(url), "label");
    }

    void copyingAnImageFallsBackToItsPath_data() {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<bool>("isPicture");
        QImage picture(3, 2, QImage::Format_RGB32);
        picture.fill(Qt::green);
        const auto encoded = [&picture](const char *format) {
            QByteArray bytes;
            QBuffer buffer(&bytes);
            buffer.open(QIODevice::WriteOnly);
            picture.save(&buffer, format);
            return bytes;
        };
        const auto row = [](const char *name, const char *file, const QByteArray &content,
                            bool isPicture) {
            QTest::newRow(name) << QString::fromLatin1(file) << content << isPicture;
        };
        row("a PNG", "a.png", encoded("PNG"), true);
        row("a BMP without its extension", "a", encoded("BMP"), true);
        row("a text", "a.txt", "text", false);
        row("a text that is called a PNG", "b.png", "text", false);
        row("a PNG that breaks off", "c.png", encoded("PNG").left(40), false);
        row("an empty file", "d.png", "", false);
    }

    void copyingAnImageFallsBackToItsPath() {
        QFETCH(QString, file);
        QFETCH(QByteArray, content);
        QFETCH(bool, isPicture);
        const QTemporaryDir folder;
        const QString path = folder.filePath(file);
        QFile written(path);
        QVERIFY(written.open(QIODevice::WriteOnly));
        written.write(content);
        written.close();

        FakeHosts fake;
        Productivity productivity(fake.hosts);
        productivity.copyImage(QUrl::fromLocalFile(path));
        QTRY_COMPARE(productivity.message(),
                     QStringLiteral("Copied. Paste into your app with ⌘V."));
        QCOMPARE(fake.pasteboard.offered.text, isPicture ? QString() : path);
        QCOMPARE(QImage::fromData(fake.pasteboard.offered.png).size(),
                 isPicture ? QSize(3, 2) : QSize(0, 0));
        QCOMPARE(productivity.pasteboardCount(), fake.pasteboard.changeCount());
    }

    void whatTheDesktopCannotDoIsSaid() {
        FakeHosts fake;
        Productivity productivity(fake.hosts);
        const QUrl file(QStringLiteral("file:///tmp/notes.txt"));
        productivity.reveal(file);
        productivity.share(file, QStringLiteral("viewer"));
        QCOMPARE(fake.fileServices.asked,
                 QStringList({QStringLiteral("reveal file:///tmp/notes.txt"),
                              QStringLiteral("share file:///tmp/notes.txt with viewer")}));
        QVERIFY(productivity.message().isNull());
        fake.fileServices.error = QStringLiteral("There is nothing.");
        productivity.reveal(file);
        QCOMPARE(productivity.message(),
                 QStringLiteral("Could not reveal notes.txt. There is nothing."));
        productivity.share(file, QStringLiteral("viewer"));
        QCOMPARE(productivity.message(),
                 QStringLiteral("Could not share notes.txt. There is nothing."));
    }
};

static const RegisteredTest<HeldFilesTest> registeredHeldFilesTest;

} // namespace perchly

#include "HeldFilesTest.moc"
