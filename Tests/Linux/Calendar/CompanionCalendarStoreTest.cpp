#include "CompanionCalendarStore.h"
#include "OnlineCalendars.h"
#include "TestFiles.h"

#include <QElapsedTimer>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <QTimeZone>

using namespace perchly;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

QByteArray vevent(const QByteArray &lines, const QByteArray &uid = "u") {
    return "BEGIN:VEVENT\nUID:" + uid + "\nSUMMARY:E\n" + lines + "\nEND:VEVENT\n";
}

QByteArray calendar(const QByteArray &components) {
    return "BEGIN:VCALENDAR\nVERSION:2.0\nPRODID:test\n" + components + "END:VCALENDAR\n";
}

QByteArray text(std::initializer_list<const char *> titles,
                const QByteArray &start = ":20260324T120000Z") {
    QByteArray events;
    for (const QByteArray title : titles) {
        events += vevent("DTSTART" + start, title).replace("SUMMARY:E", "SUMMARY:" + title);
    }
    return calendar(events);
}

constexpr Clock::TimePoint from = std::chrono::sys_days(2026y / 3 / 20);
constexpr Clock::TimePoint to = from + std::chrono::days(14);

} // namespace

/// The real companion reading real files in a separate home folder.
class CompanionCalendarStoreTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() {
        for (const QString &folder : {m_calendars, qEnvironmentVariable("XDG_CONFIG_HOME"),
                                      qEnvironmentVariable("XDG_DATA_HOME")}) {
            QDir(folder).removeRecursively();
        }
        write("work", {"First"});
        m_asked.clear();
        m_answer = true;
    }

    void eventTimesFollowRulesAndZones_data() {
        QTest::addColumn<QByteArray>("zone");
        QTest::addColumn<QByteArray>("components");
        QTest::addColumn<QStringList>("expected");
        static const QRegularExpression form(uR"((.*?)(?: \(in (.*)\))?\n(.*\n)= ?(.*)\n)"_s,
                                             QRegularExpression::DotMatchesEverythingOption);
        const auto cases =
            QString::fromUtf8(readFile(QStringLiteral(EVENT_TIMES))).split(u"\n# "_s);
        for (const QString &text : cases.sliced(1)) {
            const auto match = form.match(text);
            QVERIFY2(match.hasMatch(), qPrintable(text));
            QTest::newRow(qPrintable(match.captured(1)))
                << match.captured(2).toLatin1() << match.captured(3).toLatin1()
                << match.captured(4).split(u',', Qt::SkipEmptyParts);
        }
    }

    void eventTimesFollowRulesAndZones() {
        QFETCH(QByteArray, components);
        QFETCH(QByteArray, zone);
        QFile::remove(path("work"));
        qputenv("TZ", zone.isEmpty() ? "Europe/Berlin" : zone);
        writeFile(path("own"), calendar(components));
        // Identical events in another calendar count once.
        writeFile(path("copy"), calendar(components).replace("\n", "\r\n").prepend("\xEF\xBB\xBF"));
        QTEST(shown(*granted()), "expected");
    }

    void eventTextsAreReadFromTheFile() {
        writeFile(path("work"), calendar(vevent("DTSTART:20260324T120000Z\nLOCATION:R\xC3\xBC\n"
                                                "DESCRIPTION:1\\n2\nURL:https://x.org/\n"
                                                "BEGIN:VALARM\nDESCRIPTION:no\nDURATION:PT5M\n"
                                                "END:VALARM\n"
                                                "X-GOOGLE-CONFERENCE:https://meet.google.com/a")));
        const auto events = ask(*granted());
        QCOMPARE(events.size(), 1);
        const CalendarEvent &event = events.constFirst();
        QCOMPARE(event.location, u"Rü"_s);
        QCOMPARE(event.notes, u"1\n2\nhttps://meet.google.com/a"_s);
        QCOMPARE(event.url, u"https://x.org/"_s);
        QCOMPARE(event.end, event.start);
    }

    void hostileCalendarsDoNotAffectOthers() {
        const QByteArray rule = "DTSTART:20200101T000000Z\nRRULE:FREQ=";
        QByteArray many;
        for (int number = 0; number < 20'000; ++number) {
            many += vevent("DTSTART:20260325T120000Z\nLOCATION:" + QByteArray::number(number), {});
        }
        int number = 0;
        for (const QByteArray &components :
             {vevent(rule + "SECONDLY;BYMONTH=2;BYMONTHDAY=30"),
              vevent(rule + "MINUTELY\nDESCRIPTION:" + QByteArray(30'000, 'x')), many,
              QByteArray("BEGIN:VEVENT\n").repeated(100'000),
              vevent("DTSTART:20260325T120000Z\nDURATION:P99999999999W") +
                  vevent("DTSTART:99999999T999999Z\nRRULE:FREQ=OFTEN", "v"),
              vevent("DTSTART:20260324T120000Z\nDURATION:PT30M", "good")}) {
            writeFile(path(QByteArray::number(number++).constData()), calendar(components));
        }
        const QStringList found = shown(*granted(), 30s);
        QVERIFY(found.contains(u"0324T1200+30 E"));
        QVERIFY2(found.size() < 10'000, qPrintable(QString::number(found.size())));
    }

    void calendarsOfOtherProgramsAreFound() {
        const auto expanded = [](QString path) {
            return path.replace(u"HOME"_s, QDir::homePath())
                .replace(u"CONFIG"_s, qEnvironmentVariable("XDG_CONFIG_HOME"))
                .replace(u"DATA"_s, qEnvironmentVariable("XDG_DATA_HOME"));
        };
        for (const auto &[file, content] : std::initializer_list<std::pair<QString, QString>>{
                 {u"CONFIG/khal/config"_s, u"[calendars]\n[[a]]\npath = ~/khal/*\n"_s},
                 {u"HOME/khal/mine/displayname"_s, u"Mine\n"_s},
                 {u"CONFIG/vdirsyncer/config"_s, u"[storage a]\npath = \"~/synced/\"\n"_s},
                 {u"CONFIG/evolution/sources/1a2b.source"_s,
                  u"[Data Source]\nDisplayName[de]=x\nDisplayName=Home\n"_s},
                 {u"CONFIG/evolution/sources/hidden.source"_s,
                  u"[Data Source]\n[Calendar]\nBackendName=local\nSelected=false\n"_s},
                 {u"CONFIG/evolution/sources/custom.source"_s,
                  u"[Data Source]\n[Local]\nCustomFile=file://HOME/a%20b.ics\n"_s},
                 {u"CONFIG/akonadi_ical_resource_0rc"_s,
                  u"[General]\nPath[$e]=$HOME/kde/std.ics"_s}}) {
            writeFile(expanded(file),
                      (content.contains(u'$') ? content : expanded(content)).toUtf8());
        }
        for (const QString &file :
             {u"HOME/khal/mine/1.ics"_s, u"HOME/synced/team/1.ics"_s, u"HOME/a b.ics"_s,
              u"HOME/kde/std.ics"_s, u"HOME/elsewhere/1.ics"_s,
              u"DATA/evolution/calendar/system/calendar.ics"_s,
              u"DATA/evolution/calendar/1a2b/calendar.ics"_s,
              u"DATA/evolution/calendar/hidden/calendar.ics"_s}) {
            writeFile(expanded(file), calendar({}));
        }
        QDir().mkpath(expanded(u"DATA/calendars"_s));
        QFile::link(expanded(u"DATA/calendars"_s), expanded(u"DATA/calendars/itself"_s));
        static_cast<void>(request(*make()));
        m_asked.sort();
        QCOMPARE(m_asked.join(u','),
                 expanded(u"Home DATA/evolution/calendar/1a2b,Mine HOME/khal/mine,"
                          "a b HOME/a b.ics,std HOME/kde/std.ics,"
                          "system DATA/evolution/calendar/system,team HOME/synced/team,"
                          "work HOME/.calendars/work"_s));
    }

    void nothingIsReadWithoutConsent() {
        const auto store = make();
        QCOMPARE(titles(*store), QStringList());
        QCOMPARE(request(*store).access, CalendarAccess::Granted);
        QCOMPARE(m_asked, QStringList(u"work "_s + m_calendars + u"/work"_s));
        QCOMPARE(titles(*store), QStringList(u"First"_s));
        QCOMPARE(QFile::permissions(CalendarConsent::defaultPath()) & QFile::ReadOther,
                 QFile::Permissions());
        QCOMPARE(titles(*make()), QStringList(u"First"_s)); // in the next run of the program
        m_answer.reset();                                   // the user closes the question
        QCOMPARE(request(*store).access, CalendarAccess::Granted);
        m_answer = false;
        QCOMPARE(request(*store).access, CalendarAccess::Denied);
        QCOMPARE(titles(*store), QStringList());
        QCOMPARE(make()->access(), CalendarAccess::Denied);
        for (const auto &[content, access] : // edited while the program runs
             {std::pair("{\"readCalendars\": \"yes\"", CalendarAccess::NotAsked),
              std::pair("{\"readCalendars\": true}", CalendarAccess::Granted)}) {
            writeFile(CalendarConsent::defaultPath(), content);
            QTRY_COMPARE(store->access(), access);
        }
    }

    void changesAreAnnouncedAndRead() {
        const auto store = granted();
        QCOMPARE(titles(*store), QStringList(u"First"_s));
        QSignalSpy changed(store.get(), &CalendarStore::changed);
        write("work", {"First", "Second"});
        QVERIFY(changed.wait());
        QCOMPARE(titles(*store), QStringList({u"First"_s, u"Second"_s}));
        write("home", {"Third"});
        QVERIFY(changed.wait());
        QCOMPARE(titles(*store).size(), 3);
        QDir(m_calendars + u"/work"_s).removeRecursively();
        QVERIFY(changed.wait());
        QCOMPARE(titles(*store), QStringList(u"Third"_s));
    }

    void eventsOfATruncatedFileAreKeptForAWhile() {
        write("home", {"Other"});
        const auto store = granted();
        QCOMPARE(titles(*store).size(), 2);
        const QByteArray whole = text({"Moved"});
        const auto after = [&](const QByteArray &work) {
            writeFile(path("work"), work);
            store->expectChange();
            return titles(*store);
        };
        for (const QByteArray &torn :
             {QByteArray(), QByteArray(4, '\0'), whole.left(40), whole.chopped(3)}) {
            QCOMPARE(after(torn), QStringList({u"First"_s, u"Other"_s}));
        }
        QCOMPARE(after(whole), QStringList({u"Moved"_s, u"Other"_s}));
        int count = 0;
        while (count < 100 && after("damaged" + text({"Left"}).chopped(3)).contains(u"Moved"_s)) {
            ++count;
        }
        QVERIFY(count > 3 && count < 100);
        QCOMPARE(titles(*store), QStringList({u"Left"_s, u"Other"_s}));
    }

    void onlineCalendarsAreNamedAndRead() {
        OnlineCalendars online;
        online.add("local", "[Calendar]\nBackendName=local\n", text({"No"}));
        QCOMPARE(titles(*granted()), QStringList(u"First"_s));
        QCOMPARE(online.questions, 0); // no reason to call the service
        online.add("web", "[Calendar]\nBackendName=webcal\nSelected=true\n",
                   text({"Team"}, ";TZID=Ours:20260319T120000"));
        online.add("off", "Enabled=false\n[Calendar]\nBackendName=caldav\n", text({"Off"}));
        online.add("unseen", "[Calendar]\nBackendName=caldav\nSelected=false\n", text({"No"}));
        online.add("account", "Enabled=false\n[Collection]\nBackendName=google\n", {});
        online.add("below", "Parent=account\n[Calendar]\nBackendName=google\n", text({"No"}));
        online.add("days", "[Calendar]\nBackendName=contacts\n", text({"No"}));
        const auto store = make();
        static_cast<void>(request(*store));
        QCOMPARE(m_asked, QStringList({u"work "_s + m_calendars + u"/work"_s, u"web "_s}));
        QCOMPARE(titles(*store), QStringList({u"First"_s, u"Team"_s}));
        QCOMPARE(online.opened, QStringList(u"web"_s));
    }

    void failingServiceKeepsEarlierEvents() {
        using Failure = OnlineCalendars::Failure;
        for (const auto &[failure, other] : {std::pair(Failure::Frozen, u"Other"_s),
                                             std::pair(Failure::CalendarFrozen, u"Newer"_s),
                                             std::pair(Failure::CalendarError, u"Newer"_s)}) {
            init();
            OnlineCalendars online;
            online.add("web", "[Calendar]\nBackendName=webcal\n", text({"Team"}));
            online.add("other", "[Calendar]\nBackendName=caldav\n", text({"Other"}));
            const auto store = granted();
            QCOMPARE(titles(*store), QStringList({u"First"_s, u"Other"_s, u"Team"_s}));
            QVERIFY(store->isReadable());
            online.failure = failure;
            online.add("other", "[Calendar]\nBackendName=caldav\n", text({"Newer"}));
            write("work", {"First", "Second"});
            store->expectChange();
            QElapsedTimer timer;
            timer.start();
            const QStringList after = titles(*store);
            QVERIFY(timer.elapsed() < 4'000);
            QCOMPARE(after, QStringList({u"First"_s, other, u"Second"_s, u"Team"_s}));
        }
    }

    void failingCompanionIsReported() {
        for (const auto &[program, error] :
             {std::pair(QString(), u"The calendar reader is not installed."_s),
              std::pair(u"/bin/true"_s, u"The calendars could not be looked for."_s)}) {
            const auto store = make(program);
            const CalendarStore::Answer answer = request(*store);
            QCOMPARE(answer.access, CalendarAccess::NotAsked);
            QCOMPARE(answer.error, error);
            writeFile(CalendarConsent::defaultPath(), "{\"readCalendars\": true}");
            QTRY_COMPARE(store->access(), CalendarAccess::Granted);
            QCOMPARE(titles(*store), QStringList());
            QVERIFY(!store->isReadable());
            QFile::remove(CalendarConsent::defaultPath());
        }
    }

    void destroyedTaskNeverCompletes() {
        auto store = granted();
        int answers = 0;
        static_cast<void>(store->events(from, to, [&](const auto &) { ++answers; }));
        static_cast<void>(store->requestAccess([&](const auto &) { ++answers; }));
        const Task waiting = store->events(from, to + 1h, [&](const auto &) { ++answers; });
        QTest::qWait(1); // until reading has started
        store.reset();
        QTest::qWait(100);
        QCOMPARE(answers, 0);
    }

private:
    std::unique_ptr<CompanionCalendarStore> make(const QString &program = u"" CALENDAR_READER
                                                                          ""_s) {
        return std::make_unique<CompanionCalendarStore>(
            program, CalendarConsent::defaultPath(),
            [this](const QList<FoundCalendar> &found, CalendarAccess,
                   const CalendarAnswer &answer) -> Task {
                for (const FoundCalendar &calendar : found) {
                    m_asked.append(calendar.name + u' ' + calendar.place);
                }
                QMetaObject::invokeMethod(
                    this, [this, answer] { answer(m_answer); }, Qt::QueuedConnection);
                return nullptr;
            });
    }
    std::unique_ptr<CompanionCalendarStore> granted() {
        writeFile(CalendarConsent::defaultPath(), "{\"readCalendars\": true}");
        return make();
    }
    template <class Answer, class Start>
    static Answer await(Answer failure, const Start &start, std::chrono::seconds timeout = 10s) {
        std::optional<Answer> got;
        const Task task = start([&got](const Answer &answer) { got = answer; });
        const bool isAnswered =
            !got && QTest::qWaitFor([&got] { return got.has_value(); }, int(timeout / 1ms));
        return isAnswered ? *got : failure;
    }
    static CalendarStore::Answer request(CalendarStore &store) {
        return await(CalendarStore::Answer{.error = u"(no answer)"_s},
                     [&](const auto &take) { return store.requestAccess(take); });
    }
    /// The events of the two weeks from 20 March 2026.
    static QList<CalendarEvent> ask(CalendarStore &store, std::chrono::seconds timeout = 10s) {
        return await(
            QList<CalendarEvent>({{.title = u"(no answer)"_s}}),
            [&](const auto &take) { return store.events(from, to, take); }, timeout);
    }
    static QStringList titles(CalendarStore &store) {
        QStringList titles;
        for (const CalendarEvent &event : ask(store)) {
            titles.append(event.title);
        }
        titles.sort();
        return titles;
    }
    /// Sorted lines: "0323T0800+60 Title" starts on the 23rd at 08:00 UTC and takes an hour.
    static QStringList shown(CalendarStore &store, std::chrono::seconds timeout = 10s) {
        QStringList lines;
        for (const CalendarEvent &event : ask(store, timeout)) {
            const auto start = QDateTime::fromSecsSinceEpoch(
                std::chrono::system_clock::to_time_t(event.start), QTimeZone::utc());
            lines.append(u"%1+%2 %3%4"_s.arg(start.toString(u"MMdd'T'hhmm"_s))
                             .arg((event.end - event.start) / 1min)
                             .arg(event.title, event.allDay ? u" day"_s : QString()));
        }
        lines.sort();
        return lines;
    }
    [[nodiscard]] QString path(const char *calendar) const {
        return m_calendars + u"/%1/all.ics"_s.arg(QLatin1StringView(calendar));
    }
    void write(const char *calendar, std::initializer_list<const char *> titles) const {
        writeFile(path(calendar), text(titles));
    }

    const QString m_calendars = QDir::homePath() + u"/.calendars"_s;
    QStringList m_asked;          ///< names and places in the last question
    std::optional<bool> m_answer; ///< the user's answer
};

QTEST_GUILESS_MAIN(CompanionCalendarStoreTest)
#include "CompanionCalendarStoreTest.moc"
