#include "ClipPicture.h"
#include "TestRegistry.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QTest>

namespace perchly {

namespace {

QByteArray encoded(const QSize &size, const char *format) {
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::green);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, format);
    return bytes;
}

/// A PNG whose header claims another size than its data have.
QByteArray lyingPng(quint32 side) {
    QByteArray bytes = encoded({4, 4}, "PNG");
    for (int byte = 0; byte < 4; ++byte) {
        bytes[16 + byte] = bytes[20 + byte] = char(side >> (24 - 8 * byte));
    }
    quint32 checksum = 0xffffffff;
    for (const char byte : bytes.mid(12, 17)) {
        checksum ^= quint8(byte);
        for (int bit = 0; bit < 8; ++bit) {
            checksum = (checksum >> 1) ^ ((checksum & 1) != 0 ? 0xedb88320 : 0);
        }
    }
    for (int byte = 0; byte < 4; ++byte) {
        bytes[29 + byte] = char(~checksum >> (24 - 8 * byte));
    }
    return bytes;
}

} // namespace

class ClipPictureTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void picturesAreDecodedSmallOrNotAtAll_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QSize>("size");
        QTest::newRow("a PNG fits the room") << encoded({700, 350}, "PNG") << QSize(70, 35);
        QTest::newRow("a TIFF too") << encoded({100, 500}, "TIFF") << QSize(10, 50);
        QTest::newRow("a small one stays as it is") << encoded({7, 5}, "PNG") << QSize(7, 5);
        QTest::newRow("a very flat one keeps a line") << encoded({5000, 1}, "PNG") << QSize(70, 1);
        QTest::newRow("one that claims gigabytes") << lyingPng(60'000) << QSize(0, 0);
        QTest::newRow("one that breaks off") << encoded({700, 350}, "PNG").left(60) << QSize(0, 0);
        QTest::newRow("a kind that is never copied")
            << QByteArray("<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>")
            << QSize(0, 0);
    }

    void picturesAreDecodedSmallOrNotAtAll() {
        QFETCH(QByteArray, bytes);
        QFETCH(QSize, size);
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(ClipPicture::decoded(bytes, {70, 50}).size(), size);
        QVERIFY2(timer.elapsed() < 2000, "it took too long");
    }
};

static const RegisteredTest<ClipPictureTest> registeredClipPictureTest;

} // namespace perchly

#include "ClipPictureTest.moc"
