#include "OtherProgram.h"
#include "X11Pasteboard.h"
#include "XClient.h"

#include <QBuffer>
#include <QImage>
#include <QRandomGenerator>
#include <QSignalSpy>

#include <optional>

using namespace perchly;

namespace {

QByteArray encoded(int side, const char *format) {
    QImage image(side, side, QImage::Format_RGB32);
    auto generator = QRandomGenerator(7);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            image.setPixel(x, y, generator.generate() | 0xff000000);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

bool hasOwner(const XClient &client) {
    const auto cookie = xcb_get_selection_owner(client.get(), client.atom("CLIPBOARD"));
    const XcbPointer<xcb_get_selection_owner_reply_t> answer(
        xcb_get_selection_owner_reply(client.get(), cookie, nullptr));
    return answer && answer->owner != XCB_WINDOW_NONE;
}

} // namespace

class PasteboardWritingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aTextIsPastedInEveryForm_data();
    void aTextIsPastedInEveryForm();
    void anImageIsPastedAsItIsAndInTheOtherForm_data();
    void anImageIsPastedAsItIsAndInTheOtherForm();
    void bytesThatAreNoImageLeaveNothing();
    void severalFormsAreGivenAtOnce();
    void aWriteIsCountedOnce();
    void whatIsWrittenLastIsRead();

private:
    XClient m_client;
};

void PasteboardWritingTest::aTextIsPastedInEveryForm_data() {
    QTest::addColumn<QByteArray>("expected");
    const QByteArray utf8("Grüße 🙂");
    QTest::newRow("UTF8_STRING") << utf8;
    QTest::newRow("text/plain;charset=utf-8") << utf8;
    QTest::newRow("text/plain") << utf8;
    QTest::newRow("TEXT") << utf8;
    QTest::newRow("STRING") << QByteArray("Gr\xfc\xdf\x65 ??");
    QTest::newRow("image/png") << QByteArray();
    QTest::newRow("TARGETS") << QByteArray("UTF8_STRING\ntext/plain;charset=utf-8\nSTRING\n"
                                           "text/plain\nTEXT\nTARGETS\nTIMESTAMP\nMULTIPLE\n");
}

void PasteboardWritingTest::aTextIsPastedInEveryForm() {
    X11Pasteboard pasteboard;
    pasteboard.write(QStringLiteral("Grüße 🙂"));
    QTRY_VERIFY(hasOwner(m_client));
    QTEST(OtherProgram::paste(QString::fromLatin1(QTest::currentDataTag())), "expected");
}

void PasteboardWritingTest::anImageIsPastedAsItIsAndInTheOtherForm_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("isPng");
    QTest::newRow("a PNG") << encoded(20, "png") << true;
    QTest::newRow("a TIFF") << encoded(20, "tiff") << false;
    QTest::newRow("a PNG of 5 MB, in increments") << encoded(1'300, "png") << true;
}

void PasteboardWritingTest::anImageIsPastedAsItIsAndInTheOtherForm() {
    QFETCH(QByteArray, bytes);
    QFETCH(bool, isPng);
    X11Pasteboard pasteboard;
    pasteboard.writeImage(bytes);
    QTRY_VERIFY(hasOwner(m_client));
    const QByteArray png = OtherProgram::paste(QStringLiteral("image/png"));
    const QByteArray tiff = OtherProgram::paste(QStringLiteral("image/tiff"));
    QVERIFY((isPng ? png : tiff) == bytes);
    const QImage image = QImage::fromData(png, "png");
    QVERIFY(!image.isNull());
    QCOMPARE(QImage::fromData(tiff, "tiff").convertToFormat(image.format()), image);
    QVERIFY(OtherProgram::paste(QStringLiteral("UTF8_STRING")).isNull());
}

void PasteboardWritingTest::bytesThatAreNoImageLeaveNothing() {
    X11Pasteboard pasteboard;
    pasteboard.write(QStringLiteral("before"));
    QTRY_VERIFY(hasOwner(m_client));
    pasteboard.writeImage("no image");
    QTRY_VERIFY(!hasOwner(m_client));
    QCOMPARE(pasteboard.changeCount(), 2);
}

void PasteboardWritingTest::severalFormsAreGivenAtOnce() {
    X11Pasteboard pasteboard;
    pasteboard.write(QStringLiteral("both"));
    QTRY_VERIFY(hasOwner(m_client));
    const xcb_window_t window = m_client.makeWindow({0, 0, 1, 1});
    const QList<quint32> wishes{m_client.atom("UTF8_STRING"), m_client.atom("FIRST"),
                                m_client.atom("image/png"), m_client.atom("SECOND")};
    m_client.setProperty(window, "WISHES", m_client.atom("ATOM_PAIR"), wishes);
    xcb_convert_selection(m_client.get(), window, m_client.atom("CLIPBOARD"),
                          m_client.atom("MULTIPLE"), m_client.atom("WISHES"), XCB_CURRENT_TIME);
    m_client.sync();
    const auto values = [&](const QByteArray &name) {
        const auto cookie = xcb_get_property(m_client.get(), 0, window, m_client.atom(name),
                                             XCB_GET_PROPERTY_TYPE_ANY, 0, 16);
        const XcbPointer<xcb_get_property_reply_t> answer(
            xcb_get_property_reply(m_client.get(), cookie, nullptr));
        return QByteArray(static_cast<const char *>(xcb_get_property_value(answer.get())),
                          xcb_get_property_value_length(answer.get()));
    };
    QTRY_COMPARE(values("FIRST"), QByteArray("both"));
    const QList<quint32> given{wishes[0], wishes[1], wishes[2], XCB_ATOM_NONE};
    QTRY_COMPARE(values("WISHES"), QByteArray(reinterpret_cast<const char *>(given.constData()),
                                              given.size() * qsizetype(sizeof(quint32))));
}

void PasteboardWritingTest::aWriteIsCountedOnce() {
    X11Pasteboard pasteboard;
    const QSignalSpy changed(&pasteboard, &Pasteboard::changed);
    pasteboard.write(QStringLiteral("one"));
    pasteboard.writeImage(encoded(20, "png"));
    pasteboard.write(QStringLiteral("two"));
    QCOMPARE(pasteboard.changeCount(), 3);
    QTRY_COMPARE(OtherProgram::paste(QStringLiteral("UTF8_STRING")), QByteArray("two"));
    QTest::qWait(50);
    QCOMPARE(pasteboard.changeCount(), 3);
    QCOMPARE(changed.count(), 0);

    const OtherProgram other({QStringLiteral("UTF8_STRING=theirs")});
    QTRY_COMPARE(pasteboard.changeCount(), 4);
    QCOMPARE(changed.count(), 1);
    pasteboard.write(QStringLiteral("three"));
    QTRY_COMPARE(OtherProgram::paste(QStringLiteral("UTF8_STRING")), QByteArray("three"));
    QCOMPARE(pasteboard.changeCount(), 5);
}

void PasteboardWritingTest::whatIsWrittenLastIsRead() {
    X11Pasteboard pasteboard;
    pasteboard.write(QStringLiteral("first"));
    pasteboard.write(QStringLiteral("ours"));
    for (const qsizetype longest : {4, 3}) {
        std::optional<PasteboardContent> content;
        const Task task =
            pasteboard.read({.longestText = longest},
                            [&content](const PasteboardContent &result) { content = result; });
        QTRY_VERIFY(content);
        QCOMPARE(content->types, QStringList(pasteboardtype::text));
        QCOMPARE(content->text, longest == 4 ? QStringLiteral("ours") : QString());
    }
}

QTEST_GUILESS_MAIN(PasteboardWritingTest)
#include "PasteboardWritingTest.moc"
