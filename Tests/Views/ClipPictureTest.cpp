#include "ClipPicture.h"
#include "TestPictures.h"
#include "TestRegistry.h"

#include <QTest>

namespace perchly {

namespace {

/// A PNG whose header claims 60,000 × 60,000 pixels, but with only a few bytes of data.
QByteArray hugePng() {
    return QByteArray::fromBase64(
        "iVBORw0KGgoAAAANSUhEUgAA6mAAAOpgCAIAAAAPsOIVAAAADElEQVR4nGNgIB0AAAA0AAF2Xq7DAAAAAElFTkSu"
        "QmCC");
}

} // namespace

class ClipPictureTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void decodesPicturesToTheShownSize_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QSize>("size");
        QTest::newRow("a large PNG") << encodedPicture({700, 350}, "PNG") << QSize(70, 35);
        QTest::newRow("a large TIFF") << encodedPicture({100, 500}, "TIFF") << QSize(10, 50);
        QTest::newRow("a small PNG") << encodedPicture({7, 5}, "PNG") << QSize(7, 5);
        QTest::newRow("a PNG that claims gigabytes") << hugePng() << QSize(0, 0);
        QTest::newRow("another format") << encodedPicture({7, 5}, "BMP") << QSize(0, 0);
    }

    void decodesPicturesToTheShownSize() {
        QFETCH(QByteArray, bytes);
        QTEST(ClipPicture::decoded(bytes, {70, 50}).size(), "size");
    }
};

static const RegisteredTest<ClipPictureTest> registeredClipPictureTest;

} // namespace perchly

#include "ClipPictureTest.moc"
