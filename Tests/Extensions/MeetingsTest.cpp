#include "Meetings.h"
#include "FakeHosts.h"
#include "TestRegistry.h"

#include <QSignalSpy>
#include <QTest>

namespace perchly {

using namespace std::chrono_literals;

namespace {

const QString firstMessage = QStringLiteral("Connect Calendar to see upcoming meetings.");
const QString noneMessage = QStringLiteral("No meetings in the next seven days.");

struct MeetingsFixture {
    /// An event that begins and ends so long from now.
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
        QStringList values;
        for (int row = 0; row < meetings.count(); ++row) {
            values.append(meetings.field(row, field).toString());
        }
        return values.join(u'|');
    }

    FakeHosts fake;
    Meetings meetings{fake.calendars, fake.clock};
};

} // namespace

class MeetingsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void timedEventsAreListedByTheirStart() {
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
        QCOMPARE(f.fake.calendars.window.second - f.fake.clock.now(), 604'800s);
    }

    void connecting_data() {
        QTest::addColumn<CalendarAccess>("access");
        QTest::addColumn<QString>("error");
        QTest::addColumn<QString>("message");
        QTest::newRow("allowed") << CalendarAccess::Granted << QString() << noneMessage;
        QTest::newRow("denied") << CalendarAccess::Denied << QString()
                                << QStringLiteral("Calendar access denied. Enable it in System "
                                                  "Settings → Privacy & Security → Calendars.");
        QTest::newRow("no answer") << CalendarAccess::NotAsked << QString() << firstMessage;
        QTest::newRow("allowed but not stored")
            << CalendarAccess::Granted << QStringLiteral("Broken.") << QStringLiteral("Broken.");
    }

    void connecting() {
        QFETCH(CalendarAccess, access);
        QFETCH(QString, error);
        MeetingsFixture f;
        f.meetings.connectCalendar();
        f.meetings.connectCalendar(); // while it asks
        f.fake.calendars.granted = access;
        Q_EMIT f.fake.calendars.changed();
        QVERIFY(f.fake.calendars.answerAccess({access, error}));
        QVERIFY(!f.fake.calendars.answerAccess({access, error}));
        QCOMPARE(f.fake.calendars.answerEvents(), access == CalendarAccess::Granted);
        QTEST(f.meetings.message(), "message");
    }

    void unreadableCalendarsAreNotCalledEmpty() {
        MeetingsFixture f;
        f.fake.calendars.readable = false;
        f.load();
        QCOMPARE(f.meetings.message(), QStringLiteral("Your calendars could not all be read."));
        f.fake.calendars.readable = true;
        Q_EMIT f.fake.calendars.changed();
        QVERIFY(f.fake.calendars.answerEvents());
        QCOMPARE(f.meetings.message(), noneMessage);
        f.meetings.readAgain();
        QCOMPARE(f.fake.calendars.expectedChanges, 1);
    }

    void withdrawnAccessEmptiesTheList() {
        MeetingsFixture f;
        f.store("a", 1h, 2h);
        f.load();
        const QSignalSpy titles(&f.meetings, &Meetings::firstTitleChanged);
        f.meetings.refresh(); // under way when it happens
        f.fake.calendars.granted = CalendarAccess::Denied;
        Q_EMIT f.fake.calendars.changed();
        QVERIFY(!f.fake.calendars.answerEvents());
        QCOMPARE(f.meetings.count(), 0);
        QCOMPARE(titles.size(), 1);
        QVERIFY(f.meetings.firstTitle().isEmpty());
    }

    void theStartIsShownInTheLocale() {
        const QLocale before;
        const QDateTime start(QDate(2026, 3, 30), QTime(15, 5));
        MeetingsFixture f;
        CalendarEvent &event = f.store("a", 0s, 24h * 36'500);
        event.start = Clock::TimePoint(std::chrono::milliseconds(start.toMSecsSinceEpoch()));
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        f.load();
        QCOMPARE(f.all("start").replace(QChar(0x202F), u' '), QStringLiteral("Mon 3:05 PM"));
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        f.load();
        QCOMPARE(f.all("start"), QStringLiteral("Mo. 15:05"));
        QLocale::setDefault(before);
    }
};

static const RegisteredTest<MeetingsTest> registeredMeetings;

} // namespace perchly

#include "MeetingsTest.moc"
