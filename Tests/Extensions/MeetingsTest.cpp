#include "Meetings.h"
#include "FakeHosts.h"
#include "MeetingLinks.h"
#include "RowFields.h"
#include "TestRegistry.h"

#include <QSignalSpy>
#include <QTest>

namespace perchly {

using namespace std::chrono_literals;

namespace {

struct MeetingsFixture {
    /// Adds an event; its start and end are relative to now.
    CalendarEvent &store(const char *title, Clock::TimePoint::duration start,
                         Clock::TimePoint::duration end) {
        fake.calendars.stored.append({.identifier = QString::number(fake.calendars.stored.size()),
                                      .title = QString::fromLatin1(title),
                                      .start = fake.clock.now() + start,
                                      .end = fake.clock.now() + end});
        return fake.calendars.stored.last();
    }
    void load() {
        fake.calendars.granted = CalendarAccess::Granted;
        meetings.refresh();
        QVERIFY(fake.calendars.answerEvents());
    }
    [[nodiscard]] QString all(const char *field) const {
        return fieldsOf(meetings, field).join(u'|');
    }

    FakeHosts fake;
    Meetings meetings{fake.calendars, fake.clock};
};

} // namespace

class MeetingsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void findsTheFirstMeetingLink_data() {
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

    void findsTheFirstMeetingLink() {
        QTEST(findMeetingLink(QString::fromUtf8(QTest::currentDataTag())).toString(), "link");
    }

    void findsLinksAfterLongText() {
        const QString link = QStringLiteral("https://zoom.us/j/1");
        for (const char *before : {"%1 ", "%1://%1 ", "https://x.org/%1 ", "%1:%1 ://"}) {
            const QString text = QString::fromLatin1(before).arg(QString(64'000, u'a'));
            QCOMPARE(findMeetingLink(text + u' ' + link), QUrl(link));
        }
    }

    void listsTimedEventsByStart() {
        MeetingsFixture f;
        f.store("later", 2h, 3h).notes = QStringLiteral("https://zoom.us/3");
        f.store("a day", -5h, 19h).allDay = true;
        f.store("under way", -10min, 20min).url = QStringLiteral("https://zoom.us/1");
        f.store("just over", -1h, 0s);
        f.store("", 2h, 3h).location = QStringLiteral("https://zoom.us/2");
        f.store("at once", 0s, 1h);
        f.store("soon", 1s, 1h);
        f.store("in 90 seconds", 90s, 1h);
        f.load();
        QCOMPARE(f.all("title"),
                 QStringLiteral("under way|at once|soon|in 90 seconds|later|Meeting"));
        QCOMPARE(f.all("status"),
                 QStringLiteral("In progress|In progress|Starts in 1 min|Starts in 2 min|"
                                "Starts in 120 min|Starts in 120 min"));
        QCOMPARE(f.all("link"),
                 QStringLiteral("https://zoom.us/1||||https://zoom.us/3|https://zoom.us/2"));
        QCOMPARE(f.meetings.firstTitle(), QStringLiteral("under way"));
        QVERIFY(f.meetings.message().isEmpty());
    }

    void laterMeetingsNameTheirDayInTheLocale() {
        const QLocale before;
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        MeetingsFixture f;
        f.store("a", 24h, 25h);
        f.store("b", 72h, 73h);
        f.load();
        const auto now = std::chrono::system_clock::to_time_t(f.fake.clock.now());
        const auto time = QDateTime::fromSecsSinceEpoch(now).toString(QStringLiteral("HH:mm"));
        QCOMPARE(f.all("start"), QStringLiteral("Di. %1|Do. %1").arg(time));
        QCOMPARE(f.all("status"),
                 QStringLiteral("Starts tomorrow, %1|Starts Donnerstag, %1").arg(time));
        QLocale::setDefault(before);
    }

    void connectingAsksOnceAndShowsItsError() {
        MeetingsFixture f;
        f.meetings.connectCalendar();
        f.meetings.connectCalendar(); // ignored while the user is being asked
        QCOMPARE(f.fake.calendars.questions.count(), 1U);
        QVERIFY(f.fake.calendars.questions.answer(CalendarStore::Answer())); // dismissed
        QCOMPARE(f.meetings.message(),
                 QStringLiteral("Connect Calendar to see upcoming meetings."));
        f.meetings.connectCalendar();
        const QString error = QStringLiteral("Broken.");
        QVERIFY(f.fake.calendars.questions.answer(
            CalendarStore::Answer{CalendarAccess::Granted, error}));
        f.load(); // granted for this run only
        QCOMPARE(f.meetings.message(), error);
    }

    void reportsUnreadableCalendars() {
        MeetingsFixture f;
        f.store("of another calendar", 1h, 2h);
        f.fake.calendars.readable = false;
        f.load();
        QCOMPARE(f.meetings.message(), QStringLiteral("Your calendars could not all be read."));
        f.fake.calendars.readable = true;
        f.fake.calendars.stored.clear();
        f.meetings.readAgain();
        QCOMPARE(f.fake.calendars.expectedChanges, 1);
        QVERIFY(f.fake.calendars.answerEvents());
        QCOMPARE(f.meetings.message(), QStringLiteral("No meetings in the next seven days."));
        f.fake.clock.sleepFor(8h);
        QCOMPARE(f.fake.calendars.expectedChanges, 2);
    }

    void withdrawnConsentEmptiesTheList() {
        MeetingsFixture f;
        f.store("a", 1h, 2h);
        f.load();
        const QSignalSpy titles(&f.meetings, &Meetings::eventsChanged);
        f.meetings.refresh(); // running when access is withdrawn
        f.fake.calendars.granted = CalendarAccess::Denied;
        Q_EMIT f.fake.calendars.changed();
        QVERIFY(!f.fake.calendars.answerEvents());
        QCOMPARE(f.meetings.count(), 0);
        QCOMPARE(titles.size(), 1);
    }
};

static const RegisteredTest<MeetingsTest> registeredMeetings;

} // namespace perchly

#include "MeetingsTest.moc"
