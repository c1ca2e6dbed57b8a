#include "MeetingLinks.h"
#include "TestRegistry.h"

#include <QTest>

namespace perchly {

class MeetingLinksTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void theFirstLinkToAMeetingIsFound_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("link");
        const auto row = [](const char *name, const char *text, const char *link) {
            QTest::newRow(name) << QString::fromUtf8(text) << QString::fromLatin1(link);
        };
        row("alone", "https://zoom.us/j/1?pwd=a.b", "https://zoom.us/j/1?pwd=a.b");
        row("without the secure scheme", "http://meet.google.com/a-b",
            "http://meet.google.com/a-b");
        row("below a host", "Join: https://acme.webex.com/m", "https://acme.webex.com/m");
        row("of the business host", "https://teams.microsoft.com/l/x",
            "https://teams.microsoft.com/l/x");
        row("of the consumer host", "https://teams.live.com/meet/9",
            "https://teams.live.com/meet/9");
        row("after another link", "http://x.org/a, https://zoom.us/j/2", "https://zoom.us/j/2");
        row("the first of two", "https://webex.com/1\nhttps://zoom.us/2", "https://webex.com/1");
        row("at the end of a sentence", "See https://zoom.us/j/3.", "https://zoom.us/j/3");
        row("in brackets", "(https://zoom.us/j/4).", "https://zoom.us/j/4");
        row("with brackets of its own", "https://zoom.us/a_(b)", "https://zoom.us/a_(b)");
        row("in angle brackets", "<https://zoom.us/j/5>", "https://zoom.us/j/5");
        row("in Markdown", "[https://zoom.us/j/6](https://x.org)", "https://zoom.us/j/6");
        row("in quotation marks", "“https://zoom.us/j/7”", "https://zoom.us/j/7");
        row("in HTML", R"(<a href="https://zoom.us/j/8?a=1&amp;b=2">Join</a>)",
            "https://zoom.us/j/8?a=1&b=2");
        row("before an HTML space", "https://zoom.us/j/9&nbsp;Code", "https://zoom.us/j/9");
        row("before escaped HTML", "https://zoom.us/j/9&lt;br&gt;", "https://zoom.us/j/9");
        row("with a port and a name", "https://me@zoom.us:8443/j", "https://me@zoom.us:8443/j");
        row("with a host in capitals", "https://ZOOM.us/j", "https://zoom.us/j");
        row("beside text in another script", "参加https://zoom.us/j/1", "https://zoom.us/j/1");

        row("not with a scheme in capitals", "HTTPS://zoom.us/j", "");
        row("not with another scheme", "ftp://zoom.us/j zoommtg://zoom.us/j xhttps://zoom.us", "");
        row("not without a scheme", "zoom.us/j/1", "");
        row("not a host that ends alike", "https://notzoom.us/j https://my-webex.com", "");
        row("not a host that begins alike", "https://zoom.us.evil.org/j", "");
        row("not a user name", "https://zoom.us@evil.org/j https://zoom.us:1@evil.org", "");
        row("not in the path or query", "https://evil.org/zoom.us?u=https://zoom.us/j", "");
        row("not in letters that look alike", "https://zооm.us/j", "");
        row("not in their encoded form", "https://xn--zm-emca.us/j https://xn--zoom.us.org", "");
        row("not an encoded separator", "https://evil.org%2f.zoom.us/j", "");
        row("not another subdomain's host", "https://google.com/a https://live.com", "");
        row("not in nothing", "https:// http://. ://", "");
    }

    void theFirstLinkToAMeetingIsFound() {
        QFETCH(QString, text);
        QTEST(findMeetingLink(text).toString(), "link");
    }

    void theOneAfterALongTextIsSoonFound() {
        const QString link = QStringLiteral("https://zoom.us/j/1");
        for (const char *before : {"%1 ", "%1://%1 ", "https://x.org/%1 ", "%1:%1 ://"}) {
            const QString text = QString::fromLatin1(before).arg(QString(64'000, u'a'));
            QCOMPARE(findMeetingLink(text + u' ' + link), QUrl(link));
        }
    }

    void aLongTextWithoutOneIsSoonLookedThrough() {
        const QString start = QStringLiteral("https://");
        QVERIFY(!findMeetingLink(start.repeated(4'000)).isValid());
        QVERIFY(!findMeetingLink(QString(32'000, u'a')).isValid());
        QVERIFY(!findMeetingLink(start + QString(32'000, u'(')).isValid());
    }
};

const RegisteredTest<MeetingLinksTest> registeredLinks;

} // namespace perchly

#include "MeetingLinksTest.moc"
