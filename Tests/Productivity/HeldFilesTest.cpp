#include "Announcements.h"
#include "Productivity.h"
#include "TestRegistry.h"

#include <QTest>

namespace perchly {

namespace {

QList<QUrl> urls(const QStringList &texts) {
    QList<QUrl> result;
    for (const QString &text : texts) {
        result.append(QUrl(text));
    }
    return result;
}

} // namespace

class HeldFilesTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void holding_data() {
        QTest::addColumn<QStringList>("before");
        QTest::addColumn<QStringList>("added");
        QTest::addColumn<QStringList>("after");
        const auto row = [](const char *name, const QStringList &before, const QStringList &added,
                            const QStringList &after) {
            QTest::newRow(name) << before << added << after;
        };
        const QString file = QStringLiteral("file:///tmp/%C3%A4%20b.txt");
        const QString folder = QStringLiteral("file:///tmp/folder/");
        const QString link = QStringLiteral("https://example.org/a?b=1#c");
        const QString plainLink = QStringLiteral("http://example.org");

        row("files, folders and links are held in order", {}, {file, link, folder, plainLink},
            {file, link, folder, plainLink});
        row("what is held already keeps its place", {file, link}, {link, folder, file},
            {file, link, folder});
        row("one given twice is held once", {}, {link, link}, {link});
        row("links that differ in a slash are two", {plainLink},
            {plainLink + QLatin1StringView("/")}, {plainLink, plainLink + QLatin1StringView("/")});
        for (const char *other :
             {"ftp://example.org/a", "javascript:alert(1)", "httpss://example.org", "/tmp/a.txt"}) {
            row(qPrintable(QStringLiteral("passed over: “%1”").arg(QString::fromLatin1(other))), {},
                {QString::fromLatin1(other), link}, {link});
        }
    }

    void holding() {
        QFETCH(QStringList, before);
        QFETCH(QStringList, added);
        QFETCH(QStringList, after);
        Productivity productivity;
        productivity.hold(urls(before));
        productivity.hold(urls(added));
        QCOMPARE(productivity.held(), urls(after));
    }

    void onlyAChangeIsAnnounced() {
        Productivity productivity;
        Announcements announcements(productivity);
        const QList<QUrl> links =
            urls({QStringLiteral("https://a.example/"), QStringLiteral("https://b.example/")});
        productivity.hold(links);
        QCOMPARE(announcements.take(), QStringList(QStringLiteral("heldChanged")));
        productivity.hold(links);
        productivity.hold(urls({QStringLiteral("ftp://a.example/")}));
        productivity.hold({});
        QCOMPARE(announcements.take(), QStringList());
    }
};

static const RegisteredTest<HeldFilesTest> registered;

} // namespace perchly

#include "HeldFilesTest.moc"
