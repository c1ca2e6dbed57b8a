#include "ProcessPictureReader.h"
#include "TestFiles.h"
#include "TestPictures.h"

#include <QTemporaryDir>

#include <sys/stat.h>

using namespace perchly;

class PictureReaderTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void readsAnyFormatAsPng() {
        const QByteArray withMetadata = encodedPicture({30, 20}, "png") + "more";
        QCOMPARE(read(withMetadata), withMetadata);
        for (const char *format : {"jpg", "bmp", "tiff"}) {
            const QByteArray png = read(encodedPicture({30, 20}, format));
            QVERIFY2(QImage::fromData(png, "png").size() == QSize(30, 20), format);
            QVERIFY2(QImage::fromData(answer(15), "png").size() == QSize(15, 10), format);
        }
    }

    void refusesOtherFiles() {
        for (const char *bytes : {"", "text", "P6\n200000 200000\n255\nxxxxxx"}) {
            QCOMPARE(read(bytes), QByteArray());
        }
        QVERIFY(QFile::remove(m_path));
        QCOMPARE(mkfifo(qPrintable(m_path), 0600), 0);
        QCOMPARE(answer(), QByteArray());
    }

private:
    QByteArray read(const QByteArray &bytes) {
        writeFile(m_path, bytes);
        return answer();
    }
    QByteArray answer(int maxSide = 0) {
        std::optional<QByteArray> answer;
        const Task task =
            m_reader.readAsPng(m_path, maxSide, [&answer](const QByteArray &png) { answer = png; });
        return QTest::qWaitFor([&answer] { return answer.has_value(); }, 10'000)
                   ? *answer
                   : QByteArray("no answer");
    }

    QTemporaryDir m_folder;
    const QString m_path = m_folder.filePath(QStringLiteral("picture"));
    ProcessPictureReader m_reader{QStringLiteral(PICTURE_COMPANION)};
};

QTEST_GUILESS_MAIN(PictureReaderTest)
#include "PictureReaderTest.moc"
