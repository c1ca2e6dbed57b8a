#include "CalendarReading.h"
#include "TestFiles.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QTimeZone>

using namespace perchly;

namespace {

QByteArray vevent(const QByteArray &lines, const QByteArray &uid = "u") {
    return "BEGIN:VEVENT\nUID:" + uid + "\nSUMMARY:E\n" + lines + "\nEND:VEVENT\n";
}

QByteArray calendar(const QByteArray &components) {
    return "BEGIN:VCALENDAR\nVERSION:2.0\nPRODID:test\n" + components + "END:VCALENDAR\n";
}

/// Every Monday at nine, for an hour, in Berlin, whose clocks go forward on the 29th of March.
const QByteArray mondays = "DTSTART;TZID=Europe/Berlin:20260105T090000\n"
                           "DTEND;TZID=Europe/Berlin:20260105T100000\nRRULE:FREQ=WEEKLY";
const QByteArray good = vevent("DTSTART:20260324T120000Z\nDURATION:PT30M", "good");
const QString goodLine = QStringLiteral("0324T1200+30 E");

} // namespace

/// Runs the companion with a home of its own, in Berlin unless said otherwise, over the two weeks
/// from the 20th of March 2026.
class CalendarReaderTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { m_home = std::make_unique<QTemporaryDir>(); }

    void whenEventsTakePlace_data();
    void whenEventsTakePlace();
    void whatAnEventSays();
    void hostileTextCostsNobodyElse_data();
    void hostileTextCostsNobodyElse();
    void aHugeCalendarIsReadInTime();
    void calendarsAreFoundWhereProgramsKeepThem();
    void anythingElseIsWrongUsage();

private:
    [[nodiscard]] QString path(const char *name) const {
        return m_home->filePath(QString::fromLatin1(name));
    }

    QByteArray run(const QStringList &arguments, const QString &zone = {}, int *status = nullptr) {
        QProcessEnvironment environment;
        environment.insert(QStringLiteral("HOME"), m_home->path());
        environment.insert(QStringLiteral("TZ"),
                           zone.isEmpty() ? QStringLiteral("Europe/Berlin") : zone);
        QProcess process;
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(CALENDAR_READER), arguments);
        process.waitForFinished(20'000);
        if (status != nullptr) {
            *status = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
        }
        return process.readAllStandardOutput();
    }

    CalendarReading read(const QString &zone = {}) {
        const QString from = QString::number(
            QDateTime(QDate(2026, 3, 20), QTime(), QTimeZone::utc()).toSecsSinceEpoch());
        const QString to = QString::number(
            QDateTime(QDate(2026, 4, 3), QTime(), QTimeZone::utc()).toSecsSinceEpoch());
        int status = 0;
        const QByteArray said = run({QStringLiteral("events"), from, to}, zone, &status);
        m_said = said.size();
        const auto reading = CalendarReading::parse(said);
        return status == 0 ? reading : CalendarReading();
    }

    /// "0323T0800+60 Title" for an event of the 23rd of March that begins at eight o'clock
    /// universal time and takes an hour; in their order.
    static QStringList shown(const CalendarReading &reading) {
        QStringList lines;
        for (const CalendarEvent &event : reading.eventsBetween({}, Clock::TimePoint::max())) {
            const auto start = QDateTime::fromSecsSinceEpoch(
                std::chrono::system_clock::to_time_t(event.start), QTimeZone::utc());
            lines.append(QStringLiteral("%1+%2 %3%4")
                             .arg(start.toString(QStringLiteral("MMdd'T'hhmm")))
                             .arg((event.end - event.start) / std::chrono::minutes(1))
                             .arg(event.title, event.allDay ? QStringLiteral(" day") : QString()));
        }
        lines.sort();
        return lines;
    }

    std::unique_ptr<QTemporaryDir> m_home;
    qsizetype m_said = 0; ///< bytes, by the last reading
};

void CalendarReaderTest::whenEventsTakePlace_data() {
    QTest::addColumn<QByteArray>("components");
    QTest::addColumn<QStringList>("expected");
    QTest::addColumn<QString>("zone");
    const auto row = [](const char *name, const QByteArray &components, const char *expected,
                        const char *zone = "") {
        const QString lines = QString::fromLatin1(expected);
        QTest::newRow(name) << components << lines.split(u',', Qt::SkipEmptyParts)
                            << QString::fromLatin1(zone);
    };
    const QByteArray own = "BEGIN:VTIMEZONE\nTZID:Ours\nBEGIN:STANDARD\nDTSTART:19700101T000000\n"
                           "TZOFFSETFROM:+0500\nTZOFFSETTO:+0500\nEND:STANDARD\nEND:VTIMEZONE\n";
    const auto exception = [](const QByteArray &when, const QByteArray &lines) {
        return vevent("RECURRENCE-ID;TZID=Europe/Berlin:2026" + when + "\n" + lines);
    };

    row("weekly over a change of the clocks", vevent(mondays), "0323T0800+60 E,0330T0700+60 E");
    row("in a zone with a name of Windows",
        vevent("DTSTART;TZID=\"W. Europe Standard Time\":20260330T090000\nDURATION:PT1H"),
        "0330T0700+60 E", "America/New_York");
    row("in a zone with a program's prefix",
        vevent("DTSTART;TZID=/prog.org/2026_1/Europe/Berlin:20260330T090000\nDURATION:PT1H"),
        "0330T0700+60 E", "America/New_York");
    row("in a zone that the file describes",
        own + vevent("DTSTART;TZID=Ours:20260330T090000\nDURATION:PT1H"), "0330T0400+60 E");
    row("in a zone that nobody knows",
        vevent("DTSTART;TZID=Nowhere/At All:20260330T090000\nDURATION:PT1H"), "0330T0700+60 E");
    row("floating", vevent("DTSTART:20260330T090000\nDTEND:20260330T093000"), "0330T1300+30 E",
        "America/New_York");
    row("a day", vevent("DTSTART;VALUE=DATE:20260330"), "0329T2200+1440 E day");
    row("a day with 23 hours", vevent("DTSTART;VALUE=DATE:20260329\nDTEND;VALUE=DATE:20260330"),
        "0328T2300+1380 E day");
    row("every year, on a day", vevent("DTSTART;VALUE=DATE:19800401\nRRULE:FREQ=YEARLY"),
        "0331T2200+1440 E day");
    row("at an hour that the clocks leave out",
        vevent(
            "DTSTART;TZID=Europe/Berlin:20260328T023000\nDURATION:PT1H\nRRULE:FREQ=DAILY;COUNT=3"),
        "0328T0130+60 E,0329T0130+60 E,0330T0030+60 E");
    row("begun before and not over", vevent("DTSTART:20260201T000000Z\nDTEND:20260401T000000Z"),
        "0201T0000+84960 E");
    row("begun before, with a length", vevent("DTSTART:20260318T000000Z\nDURATION:P4D"),
        "0318T0000+5760 E");
    row("just over, and just not begun",
        vevent("DTSTART:20260319T230000Z\nDTEND:20260320T000000Z", "a") +
            vevent("DTSTART:20260403T000000Z\nDURATION:PT1H", "b"),
        "");
    row("without an end", vevent("DTSTART:20260330T090000Z"), "0330T0900+0 E");
    row("with an end before its start", vevent("DTSTART:20260330T090000Z\nDTEND:20260330T080000Z"),
        "0330T0900+0 E");

    row("with one left out, by the moment", vevent(mondays + "\nEXDATE:20260330T070000Z"),
        "0323T0800+60 E");
    row("with one left out, by the day", vevent(mondays + "\nEXDATE;VALUE=DATE:20260323"),
        "0330T0700+60 E");
    row("with one added",
        vevent(mondays + ";UNTIL=20260201\nRDATE;TZID=Europe/Berlin:20260325T110000"),
        "0325T1000+60 E");
    row("until a moment", vevent(mondays + ";UNTIL=20260330T065959Z"), "0323T0800+60 E");
    row("until a day, which counts", vevent(mondays + ";UNTIL=20260330"),
        "0323T0800+60 E,0330T0700+60 E");
    row("so many times", vevent(mondays + ";COUNT=12"), "0323T0800+60 E");

    row("one moved",
        vevent(mondays) + exception("0323T090000", "DTSTART:20260324T150000Z\nDURATION:PT2H"),
        "0324T1500+120 E,0330T0700+60 E");
    row("one moved into the window, in a file where it stands first",
        exception("0615T090000", "DTSTART:20260326T150000Z\nDURATION:PT2H") + vevent(mondays),
        "0323T0800+60 E,0326T1500+120 E,0330T0700+60 E");
    row("one moved out of the window",
        vevent(mondays) + exception("0330T090000", "DTSTART:20260501T150000Z\nDURATION:PT2H"),
        "0323T0800+60 E");
    row("one cancelled",
        vevent(mondays) + exception("0323T090000", "DTSTART:20260323T080000Z\nSTATUS:CANCELLED"),
        "0330T0700+60 E");
    row("all cancelled",
        vevent(mondays + "\nSTATUS:CANCELLED") +
            exception("0323T090000", "DTSTART:20260324T150000Z"),
        "");
    row("one moved, by the newest of two",
        vevent(mondays) + exception("0323T090000", "SEQUENCE:2\nDTSTART:20260324T150000Z") +
            exception("0323T090000", "SEQUENCE:1\nDTSTART:20260325T150000Z"),
        "0324T1500+0 E,0330T0700+60 E");
    row("all moved from one on",
        vevent(mondays) +
            vevent("RECURRENCE-ID;RANGE=THISANDFUTURE;TZID=Europe/Berlin:20260316T090000\n"
                   "DTSTART;TZID=Europe/Berlin:20260317T110000\nDURATION:PT30M"),
        "0324T1000+30 E,0331T0900+30 E");
    row("none from one on",
        vevent(mondays) +
            vevent("RECURRENCE-ID;RANGE=THISANDFUTURE;TZID=Europe/Berlin:20260330T090000\n"
                   "DTSTART;TZID=Europe/Berlin:20260330T090000\nSTATUS:CANCELLED"),
        "0323T0800+60 E");
    row("one of many that the person was invited to alone",
        exception("0330T090000", "DTSTART:20260330T070000Z\nDURATION:PT1H"), "0330T0700+60 E");
    row("two with one uid", good + vevent("DTSTART:20260325T120000Z", "good"),
        "0324T1200+30 E,0325T1200+0 E");
    row("two without",
        vevent("DTSTART:20260325T120000Z", "") + vevent("DTSTART:20260326T120000Z", ""),
        "0325T1200+0 E,0326T1200+0 E");
}

void CalendarReaderTest::whenEventsTakePlace() {
    QFETCH(QByteArray, components);
    QFETCH(QString, zone);
    writeFile(path(".calendars/own/all.ics"), calendar(components));
    // The same events in another calendar are the same events.
    writeFile(path(".calendars/copy/all.ics"),
              calendar(components).replace("\n", "\r\n").prepend("\xEF\xBB\xBF"));
    const CalendarReading reading = read(zone);
    QVERIFY(reading.finished);
    QTEST(shown(reading), "expected");
}

void CalendarReaderTest::whatAnEventSays() {
    writeFile(
        path(".calendars/a/1.ics"),
        calendar(vevent("DTSTART:20260324T120000Z\nSUMMARY;LANGUAGE=en:A\\, b\nLOCATION:R\xC3\xBC"
                        "ckw\n eg\nDESCRIPTION:1\\n2\nURL:https://x.org/\n"
                        "BEGIN:VALARM\nDESCRIPTION:no\nDURATION:PT5M\nEND:VALARM\n"
                        "X-GOOGLE-CONFERENCE:https://meet.google.com/a")
                     .replace("SUMMARY:E\n", "")));
    const auto events = read().eventsBetween({}, Clock::TimePoint::max());
    QCOMPARE(events.size(), 1);
    const CalendarEvent &event = events.constFirst();
    QCOMPARE(event.title, QStringLiteral("A, b"));
    QCOMPARE(event.location, QStringLiteral("Rückweg"));
    QCOMPARE(event.notes, QStringLiteral("1\n2\nhttps://meet.google.com/a"));
    QCOMPARE(event.url, QStringLiteral("https://x.org/"));
    QCOMPARE(event.end, event.start);
}

void CalendarReaderTest::hostileTextCostsNobodyElse_data() {
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("most");
    const auto row = [](const char *name, const QByteArray &text, int most = 1) {
        QTest::newRow(name) << text << most;
    };
    const QByteArray start = "DTSTART:20200101T000000Z\nRRULE:";
    const QByteArray wordy = start + "FREQ=MINUTELY\nDESCRIPTION:";
    QByteArray endless;
    QByteArray texts;
    QByteArray longTexts;
    QByteArray nameless;
    for (int number = 0; number < 80; ++number) {
        const QByteArray uid = QByteArray::number(number);
        endless += vevent(start + "FREQ=SECONDLY;BYMONTH=2;BYMONTHDAY=30", uid);
        texts += vevent(wordy + QByteArray(2'000, 'x'), uid);
        longTexts += vevent(wordy + QByteArray(30'000, 'x'), uid);
    }
    for (int number = 0; number < 20'000; ++number) {
        nameless += vevent("DTSTART:20260324T120000Z\nLOCATION:" + QByteArray::number(number), "");
    }
    row("rules that never find a time", endless);
    row("events every minute, with a text", texts, 4001);
    row("events every minute, with a long text", longTexts, 4001);
    row("events that nothing tells apart", nameless, 4001);
    row("a rule for every second", vevent(start + "FREQ=SECONDLY"), 2001);
    row("a rule that counts for ever", vevent(start + "FREQ=SECONDLY;COUNT=2000000000"), 2001);
    row("rules that are none",
        vevent(start + "FREQ=OFTEN;BYDAY=XX", "a") + vevent(start, "b") +
            vevent(start + "FREQ=DAILY;INTERVAL=0", "c") +
            vevent(start + "FREQ=YEARLY;BYMONTH=99;BYMONTHDAY=-77", "d"),
        60);
    row("times that are none",
        vevent("DTSTART:99999999T999999Z", "a") + vevent("DTSTART:", "b") +
            vevent("DTSTART:-1", "c") + vevent("SUMMARY:x", "d") +
            vevent("DTSTART:20260324T120000Z\nDURATION:P99999999999W", "e"),
        3);
    row("a zone whose rules are hostile",
        "BEGIN:VTIMEZONE\nTZID:Bad\nBEGIN:STANDARD\nDTSTART:19700101T000000\n"
        "RRULE:FREQ=SECONDLY;BYMONTH=2;BYMONTHDAY=30\nTZOFFSETFROM:+9999\nTZOFFSETTO:-9999\n"
        "END:STANDARD\nEND:VTIMEZONE\n" +
            vevent("DTSTART;TZID=Bad:20260325T120000", "bad"),
        2);
    row("a name of a zone that leads elsewhere",
        vevent("DTSTART;TZID=../../../etc/passwd:20260325T120000", "bad"), 2);
    row("components in components", QByteArray("BEGIN:VEVENT\n").repeated(100'000) +
                                        QByteArray("END:VEVENT\n").repeated(100'000));
    row("one endless line",
        vevent("SUMMARY:" + QByteArray(8 << 20, 'x') + "\nDTSTART:20260324T", "a"), 2);
    row("bytes that are no text", vevent("SUMMARY:\xFF\xFE\x01\nDTSTART:20260325T120000Z", "a"), 2);
}

void CalendarReaderTest::hostileTextCostsNobodyElse() {
    QFETCH(QByteArray, text);
    QFETCH(int, most);
    writeFile(path(".calendars/a/1.ics"), calendar(text));
    writeFile(path(".calendars/b/1.ics"), calendar(good));
    QElapsedTimer timer;
    timer.start();
    const CalendarReading reading = read();
    QVERIFY(timer.elapsed() < 5'000);
    QVERIFY(reading.finished);
    QVERIFY(m_said < 6 << 20); // what one calendar may say, and a little
    for (const auto &event :
         reading.eventsBetween(Clock::TimePoint::min(), Clock::TimePoint::max())) {
        QVERIFY2(event.start <= event.end, "an event that outlasts the clock");
    }
    const QStringList found = shown(reading);
    QVERIFY(found.contains(goodLine));
    QVERIFY2(found.size() <= most, qPrintable(found.join(u' ').left(2'000)));
}

void CalendarReaderTest::aHugeCalendarIsReadInTime() {
    QByteArray much;
    const QByteArray past = vevent(
        "DTSTART:20200101T000000Z\nDURATION:PT1H\nDESCRIPTION:" + QByteArray(300, 'x'), "past");
    while (much.size() < 100'000'000) {
        much += past;
    }
    writeFile(path(".calendars/a/1.ics"), calendar(much + good));
    const CalendarReading reading = read();
    QVERIFY(reading.finished);
    QCOMPARE(shown(reading), QStringList(goodLine));
}

void CalendarReaderTest::calendarsAreFoundWhereProgramsKeepThem() {
    const QByteArray text = calendar(good);
    writeFile(path(".config/khal/config"), "[calendars]\n[[a]]\npath = ~/khal/*\n");
    writeFile(path("khal/mine/1.ics"), text);
    writeFile(path("khal/mine/displayname"), "Mine\n");
    writeFile(path(".config/vdirsyncer/config"), "[storage a]\npath = \"~/synced/\"\n");
    writeFile(path("synced/team/1.ics"), text);
    writeFile(path(".local/share/evolution/calendar/system/calendar.ics"), text);
    writeFile(path(".local/share/evolution/calendar/1a2b/calendar.ics"), text);
    writeFile(path(".config/evolution/sources/1a2b.source"),
              "[Data Source]\nDisplayName[de]=x\nDisplayName=Home\n");
    writeFile(path(".local/share/evolution/calendar/hidden/calendar.ics"), text);
    writeFile(path(".config/evolution/sources/hidden.source"),
              "[Data Source]\n[Calendar]\nBackendName=local\nSelected=false\n");
    writeFile(path(".config/evolution/sources/custom.source"),
              "[Data Source]\n[Calendar]\nBackendName=local\n[Local]\nCustomFile=file://" +
                  path("a%20b.ics").toUtf8() + '\n');
    writeFile(path("a b.ics"), text);
    writeFile(path(".config/akonadi_ical_resource_0rc"), "[General]\nPath[$e]=$HOME/kde/std.ics\n");
    writeFile(path("kde/std.ics"), text);
    writeFile(path("elsewhere/1.ics"), text);
    writeFile(path(".config/akonadi_ical_resource_1rc"), "[General]\nPath=$HOME\n");
    QDir(m_home->path()).mkpath(QStringLiteral(".local/share/calendars"));
    QFile::link(path(".local/share/calendars"), path(".local/share/calendars/itself"));
    QStringList found;
    const auto reading = CalendarReading::parse(run({QStringLiteral("list")}));
    for (const FoundCalendar &calendar : reading.calendars) {
        QVERIFY(calendar.place.startsWith(m_home->path()));
        found.append(calendar.name + u' ' + calendar.place.mid(m_home->path().size()));
    }
    found.sort();
    QCOMPARE(found, QStringList({QStringLiteral("Home /.local/share/evolution/calendar/1a2b"),
                                 QStringLiteral("Mine /khal/mine"), QStringLiteral("a b /a b.ics"),
                                 QStringLiteral("std /kde/std.ics"),
                                 QStringLiteral("system /.local/share/evolution/calendar/system"),
                                 QStringLiteral("team /synced/team")}));
    // A calendar that is made later is noticed.
    QVERIFY(read().folders.contains(path(".calendars")));
}

void CalendarReaderTest::anythingElseIsWrongUsage() {
    for (const QStringList &arguments :
         {QStringList(), QStringList(QStringLiteral("show")),
          QStringList({QStringLiteral("events"), QStringLiteral("1")}),
          QStringList({QStringLiteral("events"), QStringLiteral("2"), QStringLiteral("1")}),
          QStringList({QStringLiteral("events"), QStringLiteral("1"), QStringLiteral("2x")}),
          QStringList(
              {QStringLiteral("events"), QStringLiteral("1"), QStringLiteral("99999999999999")})}) {
        int status = 0;
        QVERIFY(run(arguments, {}, &status).isEmpty());
        QCOMPARE(status, 64);
    }
}

QTEST_GUILESS_MAIN(CalendarReaderTest)
#include "CalendarReaderTest.moc"
