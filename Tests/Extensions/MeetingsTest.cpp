#include "Announcements.h"
#include "FakeHosts.h"
#include "ShelfExtras.h"
#include "TestRegistry.h"

#include <QTest>

namespace perchly {

using namespace std::chrono_literals;

namespace {

const QString firstMessage = QStringLiteral("Connect Calendar to see upcoming meetings.");
const QString deniedMessage =
    QStringLiteral("Calendar access denied. Enable it in System Settings → Privacy & Security → "
                   "Calendars.");
const QString noneMessage = QStringLiteral("No meetings in the next seven days.");

struct Fixture {
    /// An event that begins and ends so long from now.
    void store(const char *title, Clock::TimePoint::duration start, Clock::TimePoint::duration end,
               bool allDay = false) {
        fake.calendars.stored.append({.identifier = QString::number(fake.calendars.stored.size()),
                                      .title = QString::fromLatin1(title),
                                      .start = fake.clock.now() + start,
                                      .end = fake.clock.now() + end,
                                      .allDay = allDay});
    }
    void load() {
        fake.calendars.granted = CalendarAccess::Granted;
        extras.refreshEvents();
        fake.calendars.answerEvents();
    }
    [[nodiscard]] QStringList titles() const {
        QStringList titles;
        for (const Meeting &meeting : extras.events()) {
            titles.append(meeting.title());
        }
        return titles;
    }

    FakeHosts fake;
    ShelfExtras extras{fake.hosts};
};

} // namespace

class MeetingsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void theListHoldsTimedEventsByTheirStart() {
        Fixture f;
        f.store("later", 2h, 3h);
        f.store("a day", -5h, 19h, true);
        f.store("under way", -10min, 20min);
        f.store("just over", -1h, 0s);
        f.store("", 2h, 3h);
        f.store("at once", 0s, 1h);
        f.load();
        QCOMPARE(f.titles(), QStringList({QStringLiteral("under way"), QStringLiteral("at once"),
                                          QStringLiteral("later"), QStringLiteral("Meeting")}));
        QCOMPARE(f.extras.firstEventTitle(), QStringLiteral("under way"));
        QVERIFY(f.extras.calendarMessage().isEmpty());
        QCOMPARE(f.fake.calendars.window.first, f.fake.clock.now());
        QCOMPARE(f.fake.calendars.window.second - f.fake.clock.now(), 604'800s);
    }

    void theStatusCountsStartedMinutes_data() {
        QTest::addColumn<int>("seconds");
        QTest::addColumn<QString>("status");
        QTest::newRow("since ten minutes") << -600 << QStringLiteral("In progress");
        QTest::newRow("now") << 0 << QStringLiteral("In progress");
        QTest::newRow("in a second") << 1 << QStringLiteral("Starts in 1 min");
        QTest::newRow("in a minute") << 60 << QStringLiteral("Starts in 1 min");
        QTest::newRow("in 90 seconds") << 90 << QStringLiteral("Starts in 2 min");
        QTest::newRow("in a week") << 604'799 << QStringLiteral("Starts in 10080 min");
    }

    void theStatusCountsStartedMinutes() {
        QFETCH(int, seconds);
        Fixture f;
        f.store("a", std::chrono::seconds(seconds), 700'000s);
        f.load();
        QTEST(f.extras.meetingStatus(f.extras.events().constFirst().start()), "status");
    }

    void connectingEndsWith_data() {
        QTest::addColumn<CalendarAccess>("access");
        QTest::addColumn<QString>("error");
        QTest::addColumn<QString>("message");
        QTest::newRow("a yes") << CalendarAccess::Granted << QString() << noneMessage;
        QTest::newRow("a no") << CalendarAccess::Denied << QString() << deniedMessage;
        QTest::newRow("no answer") << CalendarAccess::NotAsked << QString() << firstMessage;
        QTest::newRow("a failure")
            << CalendarAccess::NotAsked << QStringLiteral("Broken.") << QStringLiteral("Broken.");
        QTest::newRow("a yes that is not kept")
            << CalendarAccess::Granted << QStringLiteral("Broken.") << QStringLiteral("Broken.");
    }

    void connectingEndsWith() {
        QFETCH(CalendarAccess, access);
        QFETCH(QString, error);
        Fixture f;
        QCOMPARE(f.extras.calendarMessage(), firstMessage);
        f.extras.connectCalendar();
        f.extras.connectCalendar(); // while the person is being asked
        f.fake.calendars.granted = access;
        Q_EMIT f.fake.calendars.changed();
        QVERIFY(f.fake.calendars.answerAccess({access, error}));
        QCOMPARE(f.fake.calendars.answerEvents(), access == CalendarAccess::Granted);
        QTEST(f.extras.calendarMessage(), "message");
        f.extras.connectCalendar();
        QVERIFY(f.fake.calendars.answerAccess({access, error}));
    }

    void readingAnewPassesOverWhatIsRemembered() {
        Fixture f;
        f.load();
        f.extras.refreshEvents();
        QVERIFY(f.fake.calendars.answerEvents());
        QCOMPARE(f.fake.calendars.expectedChanges, 0);
        f.extras.readEventsAnew();
        QCOMPARE(f.fake.calendars.expectedChanges, 1);
        QVERIFY(f.fake.calendars.answerEvents());
    }

    void withdrawnAccessEmptiesTheList() {
        Fixture f;
        f.store("a", 1h, 2h);
        f.load();
        f.extras.refreshEvents(); // under way when it happens
        f.fake.calendars.granted = CalendarAccess::Denied;
        Q_EMIT f.fake.calendars.changed();
        QVERIFY(!f.fake.calendars.answerEvents());
        QVERIFY(f.titles().isEmpty());
        QVERIFY(f.extras.firstEventTitle().isEmpty());
        QVERIFY(f.extras.calendarMessage().isEmpty());
    }

    void thePollFollowsTheClockAndTheCalendars() {
        Fixture f;
        f.store("ends soon", -1h, 10s);
        f.load();
        QCOMPARE(f.titles(), QStringList(QStringLiteral("ends soon")));
        Announcements announcements(f.extras);
        f.fake.clock.advance(29s);
        QVERIFY(!f.fake.calendars.answerEvents());
        f.fake.clock.advance(1s);
        QVERIFY(f.fake.calendars.answerEvents());
        QVERIFY(f.titles().isEmpty());
        QCOMPARE(f.extras.calendarMessage(), noneMessage);
        QCOMPARE(announcements.take(), QStringList({QStringLiteral("eventsChanged"),
                                                    QStringLiteral("calendarMessageChanged")}));
        f.fake.clock.advance(30s);
        QVERIFY(f.fake.calendars.answerEvents());
        QVERIFY(announcements.take().isEmpty()); // nothing is drawn anew for nothing
        f.store("new", 1h, 2h);
        Q_EMIT f.fake.calendars.changed();
        QVERIFY(f.fake.calendars.answerEvents());
        QCOMPARE(f.titles(), QStringList(QStringLiteral("new")));
    }

    void theLinkIsLookedForInTheTextsInTheirOrder() {
        const QString zoom = QStringLiteral("https://zoom.us/");
        const auto link = [](const CalendarEvent &event) { return Meeting{event}.link(); };
        QCOMPARE(link({.url = zoom + u'1', .location = zoom + u'2'}), QUrl(zoom + u'1'));
        QCOMPARE(link({.url = QStringLiteral("https://x.org"),
                       .location = zoom + u'2',
                       .notes = zoom + u'3'}),
                 QUrl(zoom + u'2'));
        QCOMPARE(link({.notes = zoom + u'3'}), QUrl(zoom + u'3'));
        QCOMPARE(link({.title = zoom}), QUrl());
    }

    void theStartIsShownInTheLocalesManner() {
        const QLocale before;
        const QDateTime start(QDate(2026, 3, 30), QTime(15, 5));
        const Meeting meeting{
            {.start = Clock::TimePoint(std::chrono::milliseconds(start.toMSecsSinceEpoch()))}};
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        QCOMPARE(meeting.startText().replace(QChar(0x202F), u' '), QStringLiteral("Mon 3:05 PM"));
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        QCOMPARE(meeting.startText(), QStringLiteral("Mo. 15:05"));
        QLocale::setDefault(before);
    }
};

const RegisteredTest<MeetingsTest> registeredMeetings;

} // namespace perchly

#include "MeetingsTest.moc"
