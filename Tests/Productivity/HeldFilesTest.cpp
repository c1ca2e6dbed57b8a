#include "FakeHosts.h"
#include "PreferenceKeys.h"
#include "Productivity.h"
#include "ShelfLibrary.h"
#include "ShelfModel.h"
#include "TestFiles.h"
#include "TestRegistry.h"

#include <QBuffer>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

namespace perchly {

namespace {

QString asText(const QList<QUrl> &urls) {
    return QUrl::toStringList(urls, QUrl::FullyEncoded).join(u' ');
}

QByteArray encodedPicture(const char *format) {
    QImage image(3, 2, QImage::Format_RGB32);
    image.fill(Qt::green);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

} // namespace

class HeldFilesTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void holding_data() {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("added");
        QTest::addColumn<QString>("after");
        const auto row = [](const char *name, const char *before, const char *added,
                            const char *after) {
            QTest::newRow(name) << QString::fromLatin1(before) << QString::fromLatin1(added)
                                << QString::fromLatin1(after);
        };
        row("in order", "", "file:///b%20c https://e.org/a?b=1#c file:///a/",
            "file:///b%20c https://e.org/a?b=1#c file:///a/");
        row("once", "file:///a", "https://a.org https://a.org file:///a",
            "file:///a https://a.org");
        row("under one name of the machine", "file:///a", "file://localhost/a", "file:///a");
        row("in one encoding", "file:///a%5B1%5D%28b%29", "file:///a[1](b)", "file:///a[1](b)");
        row("names that are not UTF-8", "", "file:///%FF%5B file:///%FE%5B",
            "file:///%FF%5B file:///%FE%5B");
        row("not other schemes", "", "ftp://a.org javascript:alert(1) httpss://a.org /a http://b",
            "http://b");
        row("not other machines' files", "", "file://elsewhere/a file:///a", "file:///a");
    }

    void holding() {
        QFETCH(QString, before);
        QFETCH(QString, added);
        FakeHosts fake;
        HeldFiles held(fake.openPanel);
        held.hold(QUrl::fromStringList(before.split(u' ', Qt::SkipEmptyParts)));
        held.hold(QUrl::fromStringList(added.split(u' ')));
        QTEST(asText(held.urls()), "after");
    }

    void droppedAndTypedLinksInCapitalsAreNotTaken() {
        FakeHosts fake;
        HeldFiles held(fake.openPanel);
        QVERIFY(held.holdDropped(
            QStringLiteral("# a comment\r\nHTTPS://a.example/\r\nhttps://b.example/\r\n\r\n"
                           "FILE:///tmp/a\r\nfile://elsewhere/tmp/b\njunk")));
        QVERIFY(!held.holdDropped(QStringLiteral("# nothing\njunk")));
        for (const char *typed : {"HTTPS://example.org", "example.org", "https",
                                  " https://example.org", "https://example.org:port/", ""}) {
            QVERIFY2(!held.addLink(QString::fromLatin1(typed)), typed);
        }
        QVERIFY(held.addLink(QStringLiteral("https://example.org/ä?q=1#part")));
        QCOMPARE(asText(held.urls()), QStringLiteral("https://b.example/ file:///tmp/a "
                                                     "https://example.org/%C3%A4?q=1#part"));
    }

    void filesAreChosenInADialog() {
        FakeHosts fake;
        HeldFiles held(fake.openPanel);
        held.addFiles();
        held.addFiles();
        fake.openPanel.choose({});
        QVERIFY(!fake.openPanel.open().has_value());
        held.addFiles();
        fake.openPanel.choose(
            {QUrl(QStringLiteral("file:///a")), QUrl(QStringLiteral("file:///b"))});
        held.remove(QUrl(QStringLiteral("file:///a")));
        QCOMPARE(asText(held.urls()), QStringLiteral("file:///b"));
    }

    void labels_data() {
        QTest::addColumn<QString>("label");
        const auto row = [](const char *url, const char *label) {
            QTest::newRow(url) << QString::fromUtf8(label);
        };
        row("file:///tmp/100%25%20%C3%A4.txt", "100% ä.txt");
        row("file:///tmp/folder/", "folder");
        row("file:///", "/");
        row("file:///tmp/%E2%80%AEgpj%0A.x", "gpj .x");
        row("file:///tmp/%E2%80%8B", "%E2%80%8B");
        row("https://example.org/a%20b", "https://example.org/a%20b");
    }

    void labels() {
        FakeHosts fake;
        HeldFiles held(fake.openPanel);
        held.hold({QUrl(QString::fromLatin1(QTest::currentDataTag()))});
        QTEST(held.field(0, "label").toString(), "label");
    }

    void picturesAreFoundInTheBackgroundAndCopied_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<bool>("isPicture");
        QTest::newRow("a.png") << encodedPicture("PNG") << true;
        QTest::newRow("a") << encodedPicture("BMP") << true;
        QTest::newRow("b.png") << QByteArray("text") << false;
        QTest::newRow("c.png") << encodedPicture("PNG").left(40) << false;
    }

    void picturesAreFoundInTheBackgroundAndCopied() {
        QFETCH(QByteArray, content);
        QFETCH(bool, isPicture);
        const QTemporaryDir folder;
        const QString path = folder.filePath(QString::fromLatin1(QTest::currentDataTag()));
        writeFile(path, content);
        FakeHosts fake;
        ClipboardHistory clipboard(fake.pasteboard, fake.clock, [](const QString &) {});
        HeldFiles held(fake.openPanel);
        const qint64 before = fake.pasteboard.changeCount();
        held.hold({QUrl::fromLocalFile(path)});
        clipboard.copyImage(held.urls().first());
        QTRY_VERIFY(fake.pasteboard.changeCount() > before);
        QCOMPARE(fake.pasteboard.offered.text, isPicture ? QString() : path);
        QCOMPARE(QImage::fromData(fake.pasteboard.offered.png).size(),
                 isPicture ? QSize(3, 2) : QSize(0, 0));
        if (isPicture) {
            QTRY_VERIFY(held.field(0, "isPicture").toBool());
            QVERIFY(QFile::remove(path));
            held.lookAgain();
            QTRY_VERIFY(!held.field(0, "isPicture").toBool());
        }
    }

    void failuresBecomeTheMessage() {
        FakeHosts fake;
        ShelfLibrary library(fake.preferences, fake.catalog, fake.openPanel);
        ShelfModel model(fake.clock, fake.preferences, fake.alertSound);
        Productivity productivity(fake.hosts, library, model);
        const QUrl file(QStringLiteral("file:///tmp/notes.txt"));
        productivity.reveal(file);
        QVERIFY(productivity.message().isNull());
        fake.fileServices.error = QStringLiteral("There is nothing.");
        productivity.share(file, QStringLiteral("viewer"));
        QCOMPARE(productivity.message(),
                 QStringLiteral("Could not share notes.txt. There is nothing."));
        fake.preferences.setString(keys::quickNote, QString(Preferences::maxValueBytes + 1, u'x'));
        QVERIFY(productivity.message().startsWith(QStringLiteral("There is no room")));
    }
};

static const RegisteredTest<HeldFilesTest> registeredHeldFilesTest;

} // namespace perchly

#include "HeldFilesTest.moc"
