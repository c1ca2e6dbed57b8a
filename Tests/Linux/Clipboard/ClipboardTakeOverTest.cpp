#include "FakeHosts.h"
#include "OtherProgram.h"
#include "Productivity.h"
#include "X11Pasteboard.h"

#include <QImage>
#include <QTemporaryDir>

#include <optional>

using namespace perchly;
using namespace std::chrono_literals;

namespace {

constexpr int remains = -1;

/// Waits until the readings before this one have ended, too.
void settle(Pasteboard &pasteboard) {
    bool isOver = false;
    const Task task = pasteboard.read({.maxImageBytes = 1'000'000, .maxTextBytes = 1'000},
                                      [&isOver](const PasteboardContent &) { isOver = true; });
    QTRY_VERIFY(isOver);
}

} // namespace

class ClipboardTakeOverTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    /// One program copies, the history is cleared, the program exits or not, another one copies.
    void keepsTakeOversOut_data() {
        QTest::addColumn<bool>("isOn"); // when the first copy is made
        QTest::addColumn<QString>("first");
        QTest::addColumn<int>("exitTime"); // milliseconds before the second copy
        QTest::addColumn<QString>("second");
        QTest::addColumn<bool>("isRecorded");
        const auto text = QStringLiteral("UTF8_STRING=a");
        const auto other = QStringLiteral("UTF8_STRING=b");
        const auto manager = QStringLiteral("--manager ");
        const auto concealed = QStringLiteral("x-kde-passwordManagerHint=secret ");
        const auto transient = QStringLiteral("org.nspasteboard.TransientType=1 ");
        const QString png = QStringLiteral("image/png@") + m_folder.filePath(QStringLiteral("png"));
        const QString tiff =
            QStringLiteral("image/tiff@") + m_folder.filePath(QStringLiteral("tiff"));
        QImage image(9, 9, QImage::Format_ARGB32);
        image.fill(0x80402010);
        QVERIFY(image.save(png.section(u'@', 1), "png") &&
                image.save(tiff.section(u'@', 1), "tiff"));

        QTest::newRow("not what was copied while it was off")
            << false << text << 0 << text << false;
        QTest::newRow("not what was deleted") << true << text << 0 << text << false;
        QTest::newRow("not an image encoded differently") << true << png << 0 << tiff << false;
        QTest::newRow("not an earlier copy that the manager restores")
            << true << text << 0 << manager + other << false;
        QTest::newRow("not what the manager takes over before the program exits")
            << true << text << remains << manager + text << false;
        QTest::newRow("not concealed content without its marker")
            << true << concealed + text << remains << text << false;
        QTest::newRow("not transient content without its marker")
            << true << transient + text << remains << text << false;
        QTest::newRow("the same text from another program")
            << false << text << remains << text << true;
        QTest::newRow("the same text two seconds later") << true << text << 2'100 << text << true;
        QTest::newRow("another text at once") << true << text << 0 << other << true;
        QTest::newRow("another text that the user chooses in the manager")
            << true << text << remains << manager + other << true;
        QTest::newRow("what the program exited too early to give")
            << true << QStringLiteral("--increments 1 --dies-after 0 UTF8_STRING=aa") << 0
            << manager + QStringLiteral("UTF8_STRING=aa") << true;
    }

    void keepsTakeOversOut() {
        QFETCH(const bool, isOn);
        QFETCH(const QString, first);
        QFETCH(const int, exitTime);
        QFETCH(const QString, second);
        FakeHosts fake;
        fake.hosts.pasteboard = std::make_unique<X11Pasteboard>();
        Pasteboard &pasteboard = *fake.hosts.pasteboard;
        settle(pasteboard);
        Productivity productivity(fake.hosts);
        productivity.setClipboardEnabled(isOn);
        OtherProgram program(first.split(u' '));
        QTRY_COMPARE(pasteboard.changeCount(), 1);
        productivity.setClipboardEnabled(true);
        settle(pasteboard);
        productivity.clearClips();
        settle(pasteboard);
        fake.clock.advance(1s);
        if (exitTime != remains) {
            program.kill();
            QTest::qWait(exitTime);
        }
        const OtherProgram next(second.split(u' '));
        QTRY_COMPARE(pasteboard.changeCount(), 2);
        settle(pasteboard);
        QTEST(!productivity.clips().isEmpty(), "isRecorded");
    }

private:
    QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(ClipboardTakeOverTest)
#include "ClipboardTakeOverTest.moc"
