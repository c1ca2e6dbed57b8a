#include "WorkspaceRows.h"
#include "ClipPicture.h"
#include "FakeHosts.h"
#include "TestRegistry.h"

#include <QAbstractItemModelTester>
#include <QBuffer>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTemporaryDir>
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

QVariant fieldOf(const KeyedRows &rows, const char *field, int row = 0) {
    const QVariant fields = rows.data(rows.index(row), Qt::UserRole + 1);
    return fields.toMap().value(QString::fromLatin1(field));
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

class WorkspaceRowsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void rowsFollowTheStoreAndThoseThatStayKeepTheirPlaces() {
        FakeHosts fake;
        Productivity productivity(fake.hosts);
        ShortcutRows rows;
        rows.setTools(&productivity);
        const QAbstractItemModelTester tester(
            &rows, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QRandomGenerator random(7);
        const auto nameOf = [&rows](const QModelIndex &index) {
            return fieldOf(rows, "name", index.row()).toString();
        };
        for (int round = 0; round < 300; ++round) {
            const QStringList before = productivity.shortcuts();
            QList<QPersistentModelIndex> indexes;
            for (int row = 0; row < rows.count(); ++row) {
                indexes.append(rows.index(row));
            }
            QStringList names;
            for (int count = random.bounded(7); count > 0; --count) {
                names.append(QString(QChar(u'a' + random.bounded(5)))); // some of them twice
            }
            productivity.refreshShortcuts();
            fake.shortcuts.answer(0, names.join(u'\n'));
            QStringList shown;
            for (int row = 0; row < rows.count(); ++row) {
                shown.append(nameOf(rows.index(row)));
            }
            QCOMPARE(shown, names);
            for (qsizetype row = 0; row < indexes.size(); ++row) {
                const qsizetype earlier = before.first(row).count(before.at(row));
                const bool stays = names.count(before.at(row)) > earlier;
                QCOMPARE(indexes.at(row).isValid(), stays);
                QVERIFY(!stays || nameOf(indexes.at(row)) == before.at(row));
            }
        }
    }

    void clipsAreSearchedAndLongOnesCut() {
        FakeHosts fake;
        Productivity productivity(fake.hosts);
        const QString longText = QString(1999, u'x') + QStringLiteral("😀 end");
        const QList<Clip> clips{Clip::ofText(longText), Clip::ofImage(encoded({2, 2}, "PNG"))};
        productivity.setClips(clips);
        ClipRows rows;
        rows.setTools(&productivity);
        const auto label = [&rows](int row) { return fieldOf(rows, "label", row); };
        QCOMPARE(rows.count(), 2);
        QCOMPARE(label(0), QString(1999, u'x'));
        rows.setSearch(QStringLiteral("IMAGE"));
        QCOMPARE(rows.count(), 1);
        QCOMPARE(label(0), QStringLiteral("Copied image"));
        rows.setSearch(QStringLiteral("END"));
        QCOMPARE(rows.count(), 1);
    }

    void rowsSayWhatCannotBeSeen_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("shown");
        const auto row = [](const char *name, const char *text, const char *shown) {
            QTest::newRow(name) << QString::fromUtf8(text) << QString::fromUtf8(shown);
        };
        row("white space", " \t\n", "Blank text, 3 characters");
        row("marks of direction", "\u202e\u200b", "Blank text, 2 characters");
        row("what comes after empty lines", "\n \n\n  a\n\nb", "  a\n\nb");
        row("one of it", " ", "Blank text, 1 character");
        row("a line", " a", " a");
    }

    void rowsSayWhatCannotBeSeen() {
        QFETCH(QString, text);
        FakeHosts fake;
        Productivity productivity(fake.hosts);
        productivity.setClips({Clip::ofText(text)});
        ClipRows rows;
        rows.setTools(&productivity);
        QTEST(fieldOf(rows, "label").toString(), "shown");
        QCOMPARE(fieldOf(rows, "text"), text);
    }

    void aHeldFileIsNamedAndLookedAtAgain() {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("\u202egpj\n.x"));
        QVERIFY(QImage(2, 2, QImage::Format_RGB32).save(path, "PNG"));
        FakeHosts fake;
        Productivity productivity(fake.hosts);
        productivity.hold({QUrl::fromLocalFile(path)});
        HeldRows rows;
        rows.setTools(&productivity);
        QCOMPARE(fieldOf(rows, "label"), QStringLiteral("gpj .x"));
        QTRY_VERIFY(fieldOf(rows, "isPicture").toBool());
        QVERIFY(QFile::remove(path));
        rows.lookAgain();
        QVERIFY(fieldOf(rows, "isPicture").toBool());
        QTRY_VERIFY(!fieldOf(rows, "isPicture").toBool());
        productivity.setHeld({QUrl(QStringLiteral("file:///tmp/%E2%80%8B"))});
        QCOMPARE(fieldOf(rows, "label"), QStringLiteral("%E2%80%8B"));
    }

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

static const RegisteredTest<WorkspaceRowsTest> registeredWorkspaceRowsTest;

} // namespace perchly

#include "WorkspaceRowsTest.moc"
