#include "FakePlatform.h"
#include "GioFilePictures.h"
#include "TestFiles.h"
#include "TestPictures.h"

#include <QCryptographicHash>
#include <QTemporaryDir>

using namespace perchly;

namespace {

QImage filled(Qt::GlobalColor color) {
    QImage image(40, 40, QImage::Format_RGB32);
    image.fill(color);
    return image;
}

} // namespace

class FilePicturesTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { qputenv("XDG_CACHE_HOME", m_folder.path().toUtf8()); }

    void findsTheThumbnailOrElseThePictureOrTheIcon() {
        const QString text = m_folder.filePath(QStringLiteral("a [1].txt"));
        writeFile(text, "text");
        QCOMPARE(colorOf(text), QColor(Qt::red)); // the fake's icon
        writeThumbnail(text, 0);
        QCOMPARE(colorOf(text), QColor(Qt::blue));
        const QString picture = m_folder.filePath(QStringLiteral("b.png"));
        QVERIFY(filled(Qt::yellow).save(picture));
        writeThumbnail(picture, -1); // from before a change
        QCOMPARE(colorOf(picture, "broken"), QColor(Qt::red));
        QCOMPARE(colorOf(picture, encodedPicture({40, 40}, "PNG")), QColor(Qt::green));
    }

private:
    void writeThumbnail(const QString &path, int secondsLater) {
        const QByteArray uri = QUrl::fromLocalFile(path).toEncoded().replace("[1]", "%5B1%5D");
        const auto name = QCryptographicHash::hash(uri, QCryptographicHash::Md5).toHex() + ".png";
        QImage image = filled(Qt::blue);
        const qint64 time = QFileInfo(path).lastModified().toSecsSinceEpoch() + secondsLater;
        image.setText(QStringLiteral("Thumb::MTime"), QString::number(time));
        image.setText(QStringLiteral("Thumb::URI"), QString::fromUtf8(uri));
        QVERIFY(QDir(m_folder.path()).mkpath(QStringLiteral("thumbnails/large")));
        QVERIFY(image.save(
            m_folder.filePath(QStringLiteral("thumbnails/large/") + QString::fromUtf8(name))));
    }
    QColor colorOf(const QString &path, const QByteArray &decoded = {}) {
        std::optional<QImage> found;
        const Task task =
            m_pictures.read(path, 20, [&found](const QImage &picture) { found = picture; });
        const auto isDone = [&] { return found || m_reader.readings.count() > 0; };
        if (QTest::qWaitFor(isDone) && !found) {
            m_reader.readings.answer(decoded);
        }
        return found && found->width() <= 40 ? found->pixelColor(5, 5) : QColor();
    }

    /// Qt compresses texts of 40 characters, such as the URI of a longer path; GIO does not read
    /// those.
    QTemporaryDir m_folder{QStringLiteral("/tmp/XXXXXX")};
    FakeApplications m_applications;
    FakePictureReader m_reader;
    GioFilePictures m_pictures{m_applications, m_reader};
};

QTEST_GUILESS_MAIN(FilePicturesTest)
#include "FilePicturesTest.moc"
