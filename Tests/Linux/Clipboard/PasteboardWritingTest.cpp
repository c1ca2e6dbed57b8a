#include "OtherProgram.h"
#include "X11Pasteboard.h"
#include "XClient.h"

#include <QBuffer>
#include <QImage>
#include <QRandomGenerator>
#include <QSignalSpy>

#include <future>
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

bool hasOwner(const XClient &client, xcb_atom_t selection) {
    const auto cookie = xcb_get_selection_owner(client.get(), selection);
    const XcbPointer<xcb_get_selection_owner_reply_t> answer(
        xcb_get_selection_owner_reply(client.get(), cookie, nullptr));
    return answer && answer->owner != XCB_WINDOW_NONE;
}

/// A clipboard manager that asks for several forms at once and keeps the text; ends once it has.
QByteArray keepOneText() {
    const XClient client;
    const xcb_window_t window = client.makeWindow({0, 0, 1, 1});
    xcb_set_selection_owner(client.get(), window, client.atom("CLIPBOARD_MANAGER"),
                            XCB_CURRENT_TIME);
    client.sync();
    xcb_selection_notify_event_t answer{};
    answer.response_type = XCB_SELECTION_NOTIFY;
    while (const XcbPointer<xcb_generic_event_t> event{xcb_wait_for_event(client.get())}) {
        const int type = event->response_type & 0x7f;
        if (type == XCB_SELECTION_REQUEST) {
            const auto *request =
                reinterpret_cast<const xcb_selection_request_event_t *>(event.get());
            answer.requestor = request->requestor;
            answer.selection = request->selection;
            answer.target = request->target;
            answer.property = request->property;
            if (request->target == client.atom("SAVE_TARGETS")) {
                client.setProperty(window, "WISHES", client.atom("ATOM_PAIR"),
                                   {client.atom("UTF8_STRING"), client.atom("KEPT"),
                                    client.atom("image/png"), client.atom("NO_IMAGE")});
                xcb_convert_selection(client.get(), window, client.atom("CLIPBOARD"),
                                      client.atom("MULTIPLE"), client.atom("WISHES"),
                                      XCB_CURRENT_TIME);
            }
            client.sync();
        } else if (type == XCB_SELECTION_NOTIFY) {
            const auto cookie = xcb_get_property(client.get(), 0, window, client.atom("KEPT"),
                                                 XCB_GET_PROPERTY_TYPE_ANY, 0, 16);
            const XcbPointer<xcb_get_property_reply_t> kept(
                xcb_get_property_reply(client.get(), cookie, nullptr));
            xcb_send_event(client.get(), 0, answer.requestor, XCB_EVENT_MASK_NO_EVENT,
                           reinterpret_cast<const char *>(&answer));
            client.sync();
            return {static_cast<const char *>(xcb_get_property_value(kept.get())),
                    xcb_get_property_value_length(kept.get())};
        }
    }
    return {};
}

} // namespace

class PasteboardWritingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aTextIsPastedInEveryForm_data() {
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

    void aTextIsPastedInEveryForm() {
        X11Pasteboard pasteboard;
        pasteboard.write(QStringLiteral("Grüße 🙂"));
        QTRY_VERIFY(hasOwner(m_client, m_clipboard));
        QTEST(OtherProgram::paste(QString::fromLatin1(QTest::currentDataTag())), "expected");
    }

    void anImageIsPastedAsItIsAndInTheOtherForm_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<bool>("isPng");
        QTest::newRow("a PNG") << encoded(20, "png") << true;
        QTest::newRow("a TIFF") << encoded(20, "tiff") << false;
        QTest::newRow("a PNG of 5 MB, in increments") << encoded(1'300, "png") << true;
    }

    void anImageIsPastedAsItIsAndInTheOtherForm() {
        QFETCH(QByteArray, bytes);
        QFETCH(bool, isPng);
        X11Pasteboard pasteboard;
        pasteboard.writeImage(bytes);
        QTRY_VERIFY(hasOwner(m_client, m_clipboard));
        const QByteArray png = OtherProgram::paste(QStringLiteral("image/png"));
        const QByteArray tiff = OtherProgram::paste(QStringLiteral("image/tiff"));
        QVERIFY((isPng ? png : tiff) == bytes);
        const QImage image = QImage::fromData(png, "png");
        QVERIFY(!image.isNull());
        QCOMPARE(QImage::fromData(tiff, "tiff").convertToFormat(image.format()), image);
        QVERIFY(OtherProgram::paste(QStringLiteral("UTF8_STRING")).isNull());
    }

    void filesArePastedAsWhatTheyAre_data() {
        QTest::addColumn<QByteArray>("files");
        QTest::addColumn<QByteArray>("some");
        const QByteArray file = "file:///tmp/%C3%A4%20b.txt";
        const QByteArray link = "https://example.org/?q=1";
        QTest::newRow("text/uri-list") << file + "\r\n" << file + "\r\n" + link + "\r\n";
        for (const char *name : {"x-special/gnome-copied-files", "x-special/mate-copied-files"}) {
            QTest::newRow(name) << "copy\n" + file << QByteArray();
        }
        QTest::newRow("UTF8_STRING") << QByteArray("/tmp/ä b.txt") << "/tmp/ä b.txt\n" + link;
    }

    void filesArePastedAsWhatTheyAre() {
        X11Pasteboard pasteboard;
        const QUrl file = QUrl::fromLocalFile(QStringLiteral("/tmp/ä b.txt"));
        pasteboard.writeItems({file});
        QTRY_VERIFY(hasOwner(m_client, m_clipboard));
        const QString form = QString::fromLatin1(QTest::currentDataTag());
        QTEST(OtherProgram::paste(form), "files");
        pasteboard.writeItems({file, QUrl(QStringLiteral("https://example.org/?q=1"))});
        QFETCH(const QByteArray, some);
        QTRY_COMPARE(OtherProgram::paste(form), some);
        QCOMPARE(pasteboard.changeCount(), 2);
    }

    void bytesThatAreNoImageLeaveNothing() {
        X11Pasteboard pasteboard;
        pasteboard.write(QStringLiteral("before"));
        QTRY_VERIFY(hasOwner(m_client, m_clipboard));
        pasteboard.writeImage("no image");
        QTRY_VERIFY(!hasOwner(m_client, m_clipboard));
        QCOMPARE(pasteboard.changeCount(), 2);
    }

    void aWriteIsCountedOnce() {
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

    void whatIsWrittenLastIsRead() {
        X11Pasteboard pasteboard;
        pasteboard.write(QStringLiteral("first"));
        pasteboard.write(QStringLiteral("ours"));
        std::optional<PasteboardContent> content;
        const Task task = pasteboard.read(
            {.maxTextBytes = 4}, [&content](const PasteboardContent &result) { content = result; });
        QTRY_VERIFY(content);
        QCOMPARE(content->types, QStringList(pasteboardtype::text));
        QCOMPARE(content->text, QStringLiteral("ours"));
    }

    void aClipboardManagerKeepsWhatIsOurs() {
        auto kept = std::async(std::launch::async, keepOneText);
        const xcb_atom_t manager = m_client.atom("CLIPBOARD_MANAGER");
        QTRY_VERIFY(hasOwner(m_client, manager));
        {
            X11Pasteboard pasteboard;
            pasteboard.write(QStringLiteral("ours"));
        }
        QCOMPARE(kept.get(), QByteArray("ours"));
    }

private:
    XClient m_client;
    xcb_atom_t m_clipboard = m_client.atom("CLIPBOARD");
};

QTEST_GUILESS_MAIN(PasteboardWritingTest)
#include "PasteboardWritingTest.moc"
