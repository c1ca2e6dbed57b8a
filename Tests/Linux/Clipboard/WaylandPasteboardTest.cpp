#include "WaylandPasteboard.h"
#include "HistoryReading.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QProcess>
#include <QTemporaryFile>
#include <QTest>

#include <csignal>
#include <optional>
#include <sys/resource.h>

using namespace perchly;
using namespace Qt::StringLiterals;

namespace {

/// A program that copies until it is destroyed.
class Copier {
public:
    Copier(const QString &type, const QByteArray &bytes) {
        if (!m_file.open() || m_file.write(bytes) != bytes.size() || !m_file.flush())
            qFatal("cannot write a file");
        m_process.setStandardInputFile(m_file.fileName());
        m_process.start(u"wl-copy"_s, {u"--foreground"_s, u"--type"_s, type});
        m_process.waitForStarted();
    }

    void signal(int number) {
        if (m_process.processId() > 0)
            ::kill(pid_t(m_process.processId()), number);
    }

private:
    QTemporaryFile m_file;
    QProcess m_process;
};

QByteArray paste(const QString &type) {
    QProcess process;
    process.start(u"wl-paste"_s, {u"--no-newline"_s, u"--type"_s, type});
    process.waitForFinished();
    return process.exitCode() == 0 ? process.readAllStandardOutput() : QByteArray();
}

} // namespace

class WaylandPasteboardTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void copiesAreReadUpToTheirLimits_data() {
        QTest::addColumn<QString>("type");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<bool>("isRead");
        QTest::newRow("text") << u"text/plain;charset=utf-8"_s << QByteArray("–你🙂") << true;
        QTest::newRow("X11's type") << u"UTF8_STRING"_s << QByteArray("a") << true;
        QTest::newRow("longest text") << u"text/plain"_s << QByteArray(maxTextBytes, 'a') << true;
        QTest::newRow("long text") << u"text/plain"_s << QByteArray(maxTextBytes + 1, 'a') << false;
        QTest::newRow("largest image") << u"image/png"_s << QByteArray(maxImageBytes, 'a') << true;
        QTest::newRow("huge image")
            << u"image/png"_s << QByteArray(100 * maxImageBytes, 'a') << false;
        QTest::newRow("our own") << u"application/x-perchly-copy"_s << QByteArray("1") << false;
    }

    void copiesAreReadUpToTheirLimits() {
        QFETCH(const QString, type);
        QFETCH(const QByteArray, bytes);
        QFETCH(const bool, isRead);
        const Copier copier(type, bytes);
        expectCopies(1);
        rusage before{}; // in kilobytes
        rusage after{};
        getrusage(RUSAGE_SELF, &before);
        const PasteboardContent content = readForHistory(*m_pasteboard);
        getrusage(RUSAGE_SELF, &after);
        QCOMPARE(content.types.size(), 1);
        QCOMPARE(content.text.toUtf8() + content.image, isRead ? bytes : QByteArray());
        QVERIFY(after.ru_maxrss - before.ru_maxrss < 40'000);
    }

    void marksAreSeenWhateverTheirValue() {
        const Copier copier(u"x-kde-passwordManagerHint"_s, "public");
        expectCopies(1);
        QCOMPARE(readForHistory(*m_pasteboard).types, QStringList(pasteboardtype::concealed));
    }

    void failingOwnerDelaysOnlyItsOwnCopy_data() {
        QTest::addColumn<int>("signal");  // 0 if another copy is made meanwhile
        QTest::addColumn<int>("minTime"); // in milliseconds
        QTest::newRow("never writes") << SIGSTOP << 2'900;
        QTest::newRow("closes early") << SIGKILL << 0;
        QTest::newRow("replaced") << 0 << 0;
    }

    void failingOwnerDelaysOnlyItsOwnCopy() {
        QFETCH(const int, signal);
        QFETCH(const int, minTime);
        Copier copier(u"text/plain"_s, "a");
        expectCopies(1);
        copier.signal(SIGSTOP);
        std::optional<Copier> next;
        QElapsedTimer elapsed;
        const PasteboardContent content = readForHistory(*m_pasteboard, [&] {
            QTest::qWait(100);
            if (signal == 0)
                next.emplace(u"text/plain"_s, "next");
            elapsed.start();
            copier.signal(signal);
        });
        QCOMPARE(content.text, QString());
        QVERIFY(elapsed.elapsed() >= minTime - 100 && elapsed.elapsed() < minTime + 2'000);
        if (!next)
            next.emplace(u"text/plain"_s, "next");
        expectCopies(2);
        QCOMPARE(readForHistory(*m_pasteboard).text, u"next"_s);
    }

    void otherProgramsCanPasteOurCopy() {
        m_pasteboard->write(u"ü🙂"_s);
        QTRY_COMPARE(paste(u"text/plain;charset=utf-8"_s), "ü🙂");
        m_pasteboard->writeItems({QUrl(u"file:///tmp/a%20b"_s)});
        QTRY_COMPARE(paste(u"text/uri-list"_s), "file:///tmp/a%20b\r\n");
        QCOMPARE(paste(u"x-special/gnome-copied-files"_s), "copy\nfile:///tmp/a%20b");
        const QByteArray large(3'000'000, 'a');
        m_pasteboard->write(QString::fromLatin1(large));
        QTRY_COMPARE(paste(u"text/plain"_s), large);
        QCOMPARE(m_pasteboard->changeCount(), 3);
        m_pasteboard->writeImage("no image");
        QTRY_COMPARE(paste(u"text/plain"_s), QByteArray());
        const Copier copier(u"text/plain"_s, "theirs");
        expectCopies(5);
    }

    void init() {
        m_pasteboard = std::make_unique<WaylandPasteboard>();
        readForHistory(*m_pasteboard);
    }

private:
    void expectCopies(int count) { QTRY_COMPARE(m_pasteboard->changeCount(), count); }

    std::unique_ptr<WaylandPasteboard> m_pasteboard;
};

QTEST_MAIN(WaylandPasteboardTest)
#include "WaylandPasteboardTest.moc"
