#include "MeetingLinks.h"
#include "TestRegistry.h"

#include <QTest>

namespace perchly {

class MeetingLinksTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void theFirstMeetingLinkIsFound_data() {
        QTest::addColumn<QString>("link");
        const auto row = [](const char *text, const char *link) {
            QTest::newRow(text) << QString::fromLatin1(link);
        };
        row("http://x.org/a, https://acme.webex.com/m\nhttps://zoom.us/2",
            "https://acme.webex.com/m");
        row("(See https://zoom.us/a_(b)?pwd=a.b).", "https://zoom.us/a_(b)?pwd=a.b");
        row("[https://teams.live.com/6](https://x.org)", "https://teams.live.com/6");
        row("“https://zoom.us/j/7”", "https://zoom.us/j/7");
        row("<a href=\"https://zoom.us/j/8?a=1&amp;b=2\">Join</a>", "https://zoom.us/j/8?a=1&b=2");
        row("https://zoom.us/j/9&nbsp;Code&lt;br&gt;", "https://zoom.us/j/9");
        row("参加https://me@ZOOM.us:8443/j", "https://me@zoom.us:8443/j");
        row("HTTPS://zoom.us/j ftp://zoom.us/j xhttps://zoom.us zoom.us/j/1", "");
        row("https://notzoom.us/j https://zoom.us.evil.org/j https://zoom.us@evil.org/j", "");
    }

    void theFirstMeetingLinkIsFound() {
        QTEST(findMeetingLink(QString::fromUtf8(QTest::currentDataTag())).toString(), "link");
    }

    void longTextsTakeNoTime() {
        const QString link = QStringLiteral("https://zoom.us/j/1");
        for (const char *before : {"%1 ", "%1://%1 ", "https://x.org/%1 ", "%1:%1 ://"}) {
            const QString text = QString::fromLatin1(before).arg(QString(64'000, u'a'));
            QCOMPARE(findMeetingLink(text + u' ' + link), QUrl(link));
        }
        const QString start = QStringLiteral("https://");
        QVERIFY(!findMeetingLink(start.repeated(4'000)).isValid());
        QVERIFY(!findMeetingLink(start + QString(32'000, u'(')).isValid());
    }
};

static const RegisteredTest<MeetingLinksTest> registeredLinks;

} // namespace perchly

#include "MeetingLinksTest.moc"
