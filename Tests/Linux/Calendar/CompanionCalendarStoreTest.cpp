#include "CompanionCalendarStore.h"
#include "OnlineCalendars.h"
#include "TestFiles.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>
#include <QTimeZone>

using namespace perchly;
using namespace std::chrono_literals;

namespace {

struct Call : ScheduledTask {
    Call(std::function<void()> ends)
        : ended(std::move(ends)) {}
    ~Call() override { ended(); }
    std::function<void()> ended;
};

} // namespace

/// The real companion over calendars that are written, torn and removed, in a home of its own.
class CompanionCalendarStoreTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() {
        QDir(QFileInfo(CalendarConsent::defaultPath()).path()).removeRecursively();
        QDir(m_calendars).removeRecursively();
        QDir(OnlineCalendars::folder()).removeRecursively();
        write("work", {"First"});
        m_asked.clear();
        m_closed = 0;
        m_answer = true;
    }

    void nothingIsReadBeforeTheYes() {
        const auto store = make();
        QCOMPARE(store->access(), CalendarAccess::NotAsked);
        QCOMPARE(titles(*store), QStringList());
        QCOMPARE(request(*store).access, CalendarAccess::Granted);
        QCOMPARE(m_asked, QStringList(QStringLiteral("work NotAsked")));
        QCOMPARE(titles(*store), QStringList(QStringLiteral("First")));
        // The answer is the person's own affair, and holds the next time.
        QCOMPARE(QFile::permissions(CalendarConsent::defaultPath()) & QFile::ReadOther,
                 QFile::Permissions());
        QCOMPARE(titles(*make()), QStringList(QStringLiteral("First")));
    }

    void aNoHoldsAndCanBecomeAYesAndANoAgain() {
        m_answer = false;
        const auto store = make();
        QCOMPARE(request(*store).access, CalendarAccess::Denied);
        QCOMPARE(make()->access(), CalendarAccess::Denied);
        m_answer = true;
        QCOMPARE(request(*store).access, CalendarAccess::Granted);
        m_answer.reset(); // closed
        QCOMPARE(request(*store).access, CalendarAccess::Granted);
        m_answer = false;
        QCOMPARE(request(*store).access, CalendarAccess::Denied);
        QCOMPARE(titles(*store), QStringList());
    }

    void accessThatIsTakenWhileItRunsEmptiesTheAnswers() {
        const auto store = granted();
        QSignalSpy changed(store.get(), &CalendarStore::changed);
        QVERIFY(QFile::remove(CalendarConsent::defaultPath()));
        QTRY_COMPARE(store->access(), CalendarAccess::NotAsked);
        QVERIFY(!changed.isEmpty());
        QCOMPARE(titles(*store), QStringList());
        writeFile(CalendarConsent::defaultPath(), "{\"readCalendars\": true}");
        QTRY_COMPARE(store->access(), CalendarAccess::Granted);
        QCOMPARE(titles(*store), QStringList(QStringLiteral("First")));
        writeFile(CalendarConsent::defaultPath(), "{\"readCalendars\": \"yes\"");
        QTRY_COMPARE(store->access(), CalendarAccess::NotAsked);
    }

    void anAnswerThatCannotBeStoredHoldsForThisRun() {
        QVERIFY(QDir().mkpath(CalendarConsent::defaultPath() + QStringLiteral("/in the way")));
        const auto store = make();
        m_answer = true;
        QCOMPARE(request(*store).access, CalendarAccess::Granted);
        QTest::qWait(500);
        QCOMPARE(store->access(), CalendarAccess::Granted);
    }

    void aChangeIsAnnouncedAndRead() {
        const auto store = granted();
        QTest::qWait(400); // what the first reading began is over
        static_cast<void>(titles(*store));
        QSignalSpy changed(store.get(), &CalendarStore::changed);
        write("work", {"First", "Second"});
        QTRY_VERIFY(!changed.isEmpty());
        QCOMPARE(titles(*store), QStringList({QStringLiteral("First"), QStringLiteral("Second")}));
        changed.clear();
        write("home", {"Third"});
        QTRY_VERIFY(!changed.isEmpty());
        QCOMPARE(titles(*store).size(), 3);
        changed.clear();
        QVERIFY(QDir(m_calendars + QStringLiteral("/work")).removeRecursively());
        QTRY_VERIFY(!changed.isEmpty());
        QCOMPARE(titles(*store), QStringList(QStringLiteral("Third")));
    }

    void aTornFileKeepsWhatItHeld() {
        write("home", {"Other"});
        const auto store = granted();
        QCOMPARE(titles(*store).size(), 2);
        const QByteArray whole = text({"Moved"});
        for (const QByteArray &torn :
             {QByteArray(), QByteArray(4, '\0'), whole.left(40), whole.chopped(3)}) {
            QSignalSpy changed(store.get(), &CalendarStore::changed);
            writeFile(path("work"), torn);
            write("home", {"Changed"});
            QTRY_VERIFY(!changed.isEmpty());
            QCOMPARE(titles(*store),
                     QStringList({QStringLiteral("Changed"), QStringLiteral("First")}));
        }
        QSignalSpy changed(store.get(), &CalendarStore::changed);
        writeFile(path("work"), whole);
        QTRY_VERIFY(!changed.isEmpty());
        QCOMPARE(titles(*store), QStringList({QStringLiteral("Changed"), QStringLiteral("Moved")}));
    }

    void aDamagedFileIsNotTakenForOneThatIsBeingWritten() {
        const auto reading = [](bool isTorn, const char *title) {
            CalendarReading result;
            result.files.append({QStringLiteral("a.ics"), isTorn});
            result.files.first().events.append({.title = QString::fromLatin1(title)});
            return result;
        };
        const auto shown = [](const CalendarReading &result) {
            return result.files.constFirst().events.constFirst().title;
        };
        CalendarReading last = reading(true, "never whole");
        CalendarReading next = reading(true, "changed");
        next.keepFrom(last);
        QCOMPARE(shown(next), QStringLiteral("changed"));
        last = reading(false, "whole");
        int count = 0;
        for (; count < 100; ++count) {
            next = reading(true, "torn");
            next.keepFrom(last);
            if (shown(next) != QStringLiteral("whole")) {
                break;
            }
            last = next;
        }
        QVERIFY(count > 4 && count < 100);
    }

    void aChangeThatNothingTellsOfIsReadWhenItIsExpected() {
        const QTemporaryDir elsewhere;
        const QString target = elsewhere.filePath(QStringLiteral("calendar.ics"));
        writeFile(target, text({"Before"}));
        QVERIFY(QFile::remove(path("work")) && QFile::link(target, path("work")));
        const auto store = granted();
        QCOMPARE(titles(*store), QStringList(QStringLiteral("Before")));
        QTest::qWait(100); // what setting up has told of
        QCOMPARE(titles(*store), QStringList(QStringLiteral("Before")));
        writeFile(target, text({"After"}));
        QCOMPARE(titles(*store), QStringList(QStringLiteral("Before")));
        store->expectChange();
        QCOMPARE(titles(*store), QStringList(QStringLiteral("After")));
    }

    void theServicesCalendarsAreNamedAndRead() {
        OnlineCalendars online;
        online.add("web", "[Calendar]\nBackendName=webcal\nSelected=true\n", text({"Team"}, -23h));
        online.add("off", "Enabled=false\n[Calendar]\nBackendName=caldav\n", text({"Off"}));
        online.add("unseen", "[Calendar]\nBackendName=caldav\nSelected=false\n", text({"No"}));
        online.add("account", "Enabled=false\n[Collection]\nBackendName=google\n", {});
        online.add("below", "Parent=account\n[Calendar]\nBackendName=google\n", text({"No"}));
        online.add("local", "[Calendar]\nBackendName=local\n", text({"No"}));
        online.add("days", "[Calendar]\nBackendName=contacts\n", text({"No"}));
        const auto store = granted();
        QCOMPARE(m_asked, QStringList({QStringLiteral("work NotAsked"), QStringLiteral("web")}));
        QCOMPARE(titles(*store), QStringList({QStringLiteral("First"), QStringLiteral("Team")}));
        online.opened.removeDuplicates();
        QCOMPARE(online.opened, QStringList(QStringLiteral("web")));
    }

    void aServiceThatFailsCostsNeitherTimeNorWhatItSaidBefore_data() {
        QTest::addColumn<OnlineCalendars::Failure>("failure");
        using Failure = OnlineCalendars::Failure;
        QTest::newRow("says nothing") << Failure::IsMute;
        QTest::newRow("says other things") << Failure::SaysOtherThings;
        QTest::newRow("says nothing of a calendar") << Failure::HasMuteCalendar;
        QTest::newRow("has an error for a calendar") << Failure::HasBrokenCalendar;
        QTest::newRow("has garbage for a calendar") << Failure::HasGarbage;
        QTest::newRow("has 100 MB for a calendar") << Failure::HasTooMuch;
    }

    void aServiceThatFailsCostsNeitherTimeNorWhatItSaidBefore() {
        QFETCH(OnlineCalendars::Failure, failure);
        OnlineCalendars online;
        online.add("web", "[Calendar]\nBackendName=webcal\n", text({"Team"}));
        online.add("other", "[Calendar]\nBackendName=caldav\n", text({"Other"}));
        const auto store = granted();
        const QStringList before{QStringLiteral("First"), QStringLiteral("Other"),
                                 QStringLiteral("Team")};
        QCOMPARE(titles(*store), before);
        online.fail(failure, "web");
        online.add("other", "[Calendar]\nBackendName=caldav\n", text({"Newer"}));
        QSignalSpy changed(store.get(), &CalendarStore::changed);
        write("work", {"First", "Second"});
        QTRY_VERIFY(!changed.isEmpty());
        QElapsedTimer timer;
        timer.start();
        const QStringList after = titles(*store);
        QVERIFY2(timer.elapsed() < 4'000, qPrintable(QString::number(timer.elapsed())));
        const bool saidWhich = failure > OnlineCalendars::Failure::SaysOtherThings;
        QCOMPARE(after, QStringList({QStringLiteral("First"),
                                     saidWhich ? QStringLiteral("Newer") : QStringLiteral("Other"),
                                     QStringLiteral("Second"), QStringLiteral("Team")}));
    }

    /// More than a pipe holds, while the companion is busy with files for longer than the service
    /// is waited for.
    void aLongAnswerOfTheServiceComesBesideSlowFiles() {
        OnlineCalendars online;
        const QByteArray task =
            "BEGIN:VTODO\r\nSUMMARY:" + QByteArray(4 << 20, 'x') + "\r\nEND:VTODO\r\n";
        online.add("web", "[Calendar]\nBackendName=webcal\n", task + text({"Team"}));
        QByteArray endless;
        for (int number = 0; number < 40; ++number) {
            endless += "BEGIN:VEVENT\r\nUID:" + QByteArray::number(number) +
                       "\r\nDTSTART:20200101T000000Z\r\n"
                       "RRULE:FREQ=SECONDLY;BYMONTH=2;BYMONTHDAY=30\r\nEND:VEVENT\r\n";
        }
        for (const char *calendar : {"x", "y", "z"}) {
            writeFile(path(calendar), "BEGIN:VCALENDAR\r\n" + endless + "END:VCALENDAR\r\n");
        }
        QCOMPARE(titles(*granted()),
                 QStringList({QStringLiteral("First"), QStringLiteral("Team")}));
    }

    void theServiceIsLeftAloneWhereThereIsNothingToAskItFor() {
        OnlineCalendars online;
        online.add("local", "[Calendar]\nBackendName=local\n", text({"No"}));
        const auto store = granted();
        QCOMPARE(titles(*store), QStringList(QStringLiteral("First")));
        QCOMPARE(online.questions, 0);
    }

    void aCompanionThatFails_data() {
        QTest::addColumn<QString>("program");
        QTest::addColumn<QString>("error");
        QTest::newRow("is missing")
            << QString() << QStringLiteral("The calendar reader is not installed.");
        QTest::newRow("says nothing") << QStringLiteral("/bin/true")
                                      << QStringLiteral("The calendars could not be looked for.");
        QTest::newRow("cannot be run") << QStringLiteral("/nowhere")
                                       << QStringLiteral("The calendars could not be looked for.");
    }

    void aCompanionThatFails() {
        QFETCH(QString, program);
        const auto store = make(program);
        const CalendarStore::Answer answer = request(*store);
        QCOMPARE(answer.access, CalendarAccess::NotAsked);
        QTEST(answer.error, "error");
        writeFile(CalendarConsent::defaultPath(), "{\"readCalendars\": true}");
        QTRY_COMPARE(store->access(), CalendarAccess::Granted);
        QCOMPARE(titles(*store), QStringList());
    }

    void aTaskThatGoesTakesItsAnswerAlong() {
        auto store = granted();
        int answers = 0;
        static_cast<void>(store->events(m_now, m_now + 1h, [&](const auto &) { ++answers; }));
        m_asked.clear();
        m_closed = 0;
        m_hold = true;
        Task question = store->requestAccess([&](const auto &) { ++answers; });
        QTRY_COMPARE(m_asked.size(), 1);
        question.reset();
        m_hold = false;
        QCOMPARE(m_closed, 1);
        const Task waiting = store->events(m_now, m_now + 999h, [&](const auto &) { ++answers; });
        QTest::qWait(1); // it reads
        store.reset();
        QTest::qWait(100);
        QCOMPARE(answers, 0);
    }

private:
    std::unique_ptr<CompanionCalendarStore>
    make(const QString &program = QStringLiteral(CALENDAR_READER)) {
        return std::make_unique<CompanionCalendarStore>(
            program, CalendarConsent::defaultPath(),
            [this](const QList<FoundCalendar> &found, CalendarAccess current,
                   const CalendarAnswer &answer) -> Task {
                for (const FoundCalendar &calendar : found) {
                    m_asked.append(calendar.name);
                }
                if (current == CalendarAccess::NotAsked) {
                    m_asked[0].append(QStringLiteral(" NotAsked"));
                }
                auto call = std::make_unique<Call>([this] { ++m_closed; });
                if (!m_hold) {
                    QMetaObject::invokeMethod(
                        this, [this, answer] { answer(m_answer); }, Qt::QueuedConnection);
                }
                return call;
            });
    }
    std::unique_ptr<CompanionCalendarStore> granted() {
        auto store = make();
        static_cast<void>(request(*store));
        static_cast<void>(titles(*store));
        return store;
    }
    static CalendarStore::Answer request(CalendarStore &store) {
        std::optional<CalendarStore::Answer> got;
        const Task task = store.requestAccess([&got](const auto &answer) { got = answer; });
        const bool answered = !got && QTest::qWaitFor([&got] { return got.has_value(); }, 10'000);
        return answered ? *got : CalendarStore::Answer{.error = QStringLiteral("(no answer)")};
    }
    QStringList titles(CalendarStore &store) const {
        std::optional<QStringList> got;
        const Task task = store.events(m_now, m_now + 168h, [&got](const auto &events) {
            got.emplace();
            for (const CalendarEvent &event : events) {
                got->append(event.title);
            }
            got->sort();
        });
        const bool answered = !got && QTest::qWaitFor([&got] { return got.has_value(); }, 10'000);
        return answered ? *got : QStringList(QStringLiteral("(no answer)"));
    }

    /// A calendar of events in an hour, in a zone that only the calendar can describe when the
    /// clock of that is ahead.
    [[nodiscard]] QByteArray text(std::initializer_list<const char *> titles,
                                  std::chrono::seconds ahead = 0s) const {
        const std::time_t start = std::chrono::system_clock::to_time_t(m_now + 1h + ahead);
        const QByteArray when = QDateTime::fromSecsSinceEpoch(start, QTimeZone::utc())
                                    .toString(QStringLiteral("yyyyMMdd'T'hhmmss"))
                                    .toLatin1();
        QByteArray events;
        for (const QByteArray title : titles) {
            events += "BEGIN:VEVENT\r\nUID:" + title + "\r\nDTSTART" +
                      (ahead == 0s ? ':' + when + 'Z' : ";TZID=Ours:" + when) +
                      "\r\nSUMMARY:" + title + "\r\nEND:VEVENT\r\n";
        }
        return "BEGIN:VCALENDAR\r\n" + events + "END:VCALENDAR\r\n";
    }
    [[nodiscard]] QString path(const char *calendar) const {
        return m_calendars + QStringLiteral("/%1/all.ics").arg(QLatin1StringView(calendar));
    }
    void write(const char *calendar, std::initializer_list<const char *> titles) const {
        writeFile(path(calendar), text(titles));
    }

    const QString m_calendars = QDir::homePath() + QStringLiteral("/.calendars");
    const Clock::TimePoint m_now = std::chrono::system_clock::now();
    QStringList m_asked; ///< what the person was asked
    std::optional<bool> m_answer;
    bool m_hold = false; ///< the person takes their time
    int m_closed = 0;    ///< questions
};

QTEST_GUILESS_MAIN(CompanionCalendarStoreTest)
#include "CompanionCalendarStoreTest.moc"
