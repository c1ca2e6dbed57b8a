#include "HistoryReading.h"
#include "OtherProgram.h"
#include "TestPictures.h"
#include "X11Pasteboard.h"

#include <QClipboard>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QImage>
#include <QTemporaryDir>

#include <optional>
#include <sys/resource.h>

using namespace perchly;
using namespace Qt::StringLiterals;

class PasteboardTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        m_pasteboard = std::make_unique<X11Pasteboard>();
        readForHistory(*m_pasteboard);
    }

    void bestFormatIsRead_data() {
        QTest::addColumn<QString>("owner");
        QTest::addColumn<int>("image"); // in bytes
        QTest::addColumn<QString>("text");
        const QString none;
        const QString longest(100'000, u'a');
        QTest::newRow("UTF-8") << u"UTF8_STRING=–你🙂 STRING=x"_s << 0 << u"–你🙂"_s;
        QTest::newRow("UTF-8 by MIME type") << u"text/plain;charset=utf-8=ü"_s << 0 << u"ü"_s;
        QTest::newRow("Latin-1") << u"STRING=ü"_s << 0 << u"Ã¼"_s;
        QTest::newRow("PNG first") << u"image/tiff:8 UTF8_STRING=a image/png:9"_s << 9 << none;
        QTest::newRow("empty PNG") << u"UTF8_STRING=a image/png= image/tiff:8"_s << 8 << none;
        QTest::newRow("longest text") << u"UTF8_STRING:100000"_s << 0 << longest;
        QTest::newRow("text too long") << u"UTF8_STRING:100001 STRING=a"_s << 0 << none;
        QTest::newRow("longest PNG")
            << u"--increments=65536 image/png:5000000"_s << 5'000'000 << none;
        QTest::newRow("PNG too long")
            << u"--increments=65536 image/png:5000001 image/tiff:8 STRING=a"_s << 0 << u"a"_s;
    }

    void bestFormatIsRead() {
        QFETCH(const QString, owner);
        const OtherProgram other(owner);
        QTRY_COMPARE(m_pasteboard->changeCount(), 1);
        const PasteboardContent content = readForHistory(*m_pasteboard);
        QTEST(int(content.image.size()), "image");
        QTEST(content.text, "text");
    }

    void hugeCopyIsDrainedAndDiscarded() {
        OtherProgram other(u"--increments=200000 image/png:100000000 UTF8_STRING=small"_s);
        QTRY_COMPARE(m_pasteboard->changeCount(), 1);
        rusage before{}; // in kilobytes
        rusage after{};
        getrusage(RUSAGE_SELF, &before);
        QCOMPARE(readForHistory(*m_pasteboard).text, u"small"_s);
        QVERIFY(other.waitFor("gave"));
        getrusage(RUSAGE_SELF, &after);
#ifndef __SANITIZE_ADDRESS__ // the address sanitizer keeps freed memory
        QVERIFY(after.ru_maxrss - before.ru_maxrss < 20'000);
#endif
    }

    void failingOwnerDelaysOnlyItsOwnCopy_data() {
        QTest::addColumn<QString>("owner");
        QTest::addColumn<int>("minTime"); // in milliseconds; -1 if another copy is made meanwhile
        QTest::newRow("mute") << u"--mute=TARGETS UTF8_STRING=a"_s << 2'900;
        QTest::newRow("mute after its targets") << u"--mute=UTF8_STRING UTF8_STRING=a"_s << 2'900;
        QTest::newRow("mute and replaced") << u"--mute=TARGETS UTF8_STRING=a"_s << -1;
        QTest::newRow("killed") << u"--increments=9 --dies-after=3 UTF8_STRING:90000"_s << 0;
        QTest::newRow("our connection is lost") << u"--kills=UTF8_STRING UTF8_STRING=a"_s << 0;
    }

    void failingOwnerDelaysOnlyItsOwnCopy() {
        QFETCH(const QString, owner);
        QFETCH(const int, minTime);
        const OtherProgram other(owner);
        QTRY_COMPARE(m_pasteboard->changeCount(), 1);
        std::optional<OtherProgram> next;
        QElapsedTimer elapsed;
        const PasteboardContent content = readForHistory(*m_pasteboard, [&] {
            if (minTime < 0)
                next.emplace(u"UTF8_STRING=next"_s);
            elapsed.start();
        });
        QCOMPARE(content.text, QString());
        QVERIFY(elapsed.elapsed() >= minTime && elapsed.elapsed() < minTime + 2'000);
        if (!next)
            next.emplace(u"UTF8_STRING=next"_s);
        QTRY_COMPARE(m_pasteboard->changeCount(), 2);
        QCOMPARE(readForHistory(*m_pasteboard).text, u"next"_s);
    }

    void copiesAreCountedOnce() {
        OtherProgram other(u"UTF8_STRING=a"_s);
        QTRY_COMPARE(m_pasteboard->changeCount(), 1);
        other.kill(); // an exit is not a copy
        m_pasteboard->write(u"ours"_s);
        m_pasteboard->writeImage("no image");
        QCOMPARE(m_pasteboard->changeCount(), 3);
        QTRY_COMPARE(OtherProgram::paste(u"TARGETS"_s), QByteArray());
        QGuiApplication::clipboard()->setText(u"from a text field"_s);
        QTRY_COMPARE(m_pasteboard->changeCount(), 4);
        m_pasteboard->write(u"ours"_s);
        QCOMPARE(OtherProgram::paste(u"UTF8_STRING"_s), QByteArray("ours"));
        QCOMPARE(m_pasteboard->changeCount(), 5);
    }

    void otherProgramsCanPasteOurCopy_data() {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QByteArray>("expected");
        QTest::newRow("UTF8_STRING") << u"text"_s << QByteArray("ü🙂");
        QTest::newRow("text/plain;charset=utf-8") << u"text"_s << QByteArray("ü🙂");
        QTest::newRow("image/png") << u"image"_s << encodedPicture({20, 20}, "png");
        QTest::newRow("image/tiff") << u"image"_s << encodedPicture({20, 20}, "tiff");
        QTest::newRow("image/tiff")
            << u"image in increments"_s << encodedPicture({2'100, 2'100}, "tiff");
        const QByteArray file = "file:///tmp/%C3%A4%20b.txt";
        QTest::newRow("text/uri-list") << u"files"_s << file + "\r\n";
        QTest::newRow("x-special/gnome-copied-files") << u"files"_s << "copy\n" + file;
        QTest::newRow("x-special/gnome-copied-files") << u"links"_s << QByteArray();
        QTest::newRow("UTF8_STRING")
            << u"links"_s << QByteArray("/tmp/ä b.txt\nhttps://example.org/?q=1");
    }

    void otherProgramsCanPasteOurCopy() {
        QFETCH(const QString, kind);
        QFETCH(const QByteArray, expected);
        const QString target = QString::fromLatin1(QTest::currentDataTag());
        const QUrl file = QUrl::fromLocalFile(u"/tmp/ä b.txt"_s);
        if (kind == u"text")
            m_pasteboard->write(u"ü🙂"_s);
        else if (kind == u"files")
            m_pasteboard->writeItems({file});
        else if (kind == u"links")
            m_pasteboard->writeItems({file, QUrl(u"https://example.org/?q=1"_s)});
        else
            m_pasteboard->writeImage(
                encodedPicture(kind == u"image" ? QSize(20, 20) : QSize(2'100, 2'100), "png"));
        QTRY_COMPARE(OtherProgram::paste(target), expected);
    }

    /// One program copies and may exit; then another one copies.
    void clipboardManagerTakeOversAreNotRecorded_data() {
        QTest::addColumn<QString>("first");
        QTest::addColumn<int>("exitTime"); // milliseconds before the second copy; -1 if it stays
        QTest::addColumn<QString>("second");
        QTest::addColumn<bool>("isRecorded");
        const auto a = u"UTF8_STRING=a"_s;
        const auto b = u"UTF8_STRING=b"_s;
        const auto marked = u"text/x-kde-passwordManagerHint=0 UTF8_STRING=a"_s;
        const auto manager = u"--manager= "_s;
        const QString file = m_folder.filePath(u"image"_s);
        QImage picture(9, 9, QImage::Format_ARGB32);
        picture.fill(0x80402010);
        QVERIFY(picture.save(file + u'1', "png") && picture.save(file + u'2', "tiff"));
        QTest::newRow("image encoded differently")
            << u"image/png@"_s + file + u'1' << 0 << u"image/tiff@"_s + file + u'2' << false;
        QTest::newRow("earlier copy restored by the manager") << a << 0 << manager + b << false;
        QTest::newRow("taken over before the exit") << a << -1 << manager + a << false;
        QTest::newRow("without its former marker") << marked << -1 << a << false;
        QTest::newRow("our own") << a << -1 << u"application/x-perchly-copy=1 "_s + b << false;
        QTest::newRow("same text in another program") << a << -1 << a << true;
        QTest::newRow("same text two seconds later") << a << 2'100 << a << true;
        QTest::newRow("other text chosen in the manager") << a << -1 << manager + b << true;
        QTest::newRow("not given before the exit")
            << u"--increments=1 --dies-after=0 UTF8_STRING=aa"_s << 0
            << manager + u"UTF8_STRING=aa"_s << true;
    }

    void clipboardManagerTakeOversAreNotRecorded() {
        QFETCH(const QString, first);
        QFETCH(const int, exitTime);
        QFETCH(const QString, second);
        OtherProgram program(first);
        QTRY_COMPARE(m_pasteboard->changeCount(), 1);
        readForHistory(*m_pasteboard);
        if (exitTime >= 0) {
            program.kill();
            QTest::qWait(exitTime);
        }
        const OtherProgram next(second);
        QTRY_COMPARE(m_pasteboard->changeCount(), 2);
        const PasteboardContent content = readForHistory(*m_pasteboard);
        QTEST(!content.image.isEmpty() || !content.text.isEmpty(), "isRecorded");
    }

private:
    QTemporaryDir m_folder;
    std::unique_ptr<X11Pasteboard> m_pasteboard;
};

QTEST_MAIN(PasteboardTest)
#include "PasteboardTest.moc"
