#include "EventSeries.h"

#include <QTest>

using namespace perchly;

namespace {

std::vector<std::int64_t> startsOf(const std::vector<Event> &events, const TimeWindow &window) {
    std::vector<std::int64_t> starts;
    for (const Occurrence &occurrence : occurrencesOf(events, window)) {
        if (occurrence.start >= window.from && occurrence.start < window.to) {
            starts.push_back(occurrence.start);
        }
    }
    return starts;
}

} // namespace

class EventSeriesTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    /// A rule is not walked through from its start, which may be long ago.
    void aRuleGivesNearTheWindowWhatItGivesFromItsStart_data() {
        QTest::addColumn<QByteArray>("rule");
        for (const char *rule :
             {"FREQ=DAILY", "FREQ=DAILY;INTERVAL=3", "FREQ=DAILY;COUNT=300",
              "FREQ=WEEKLY;INTERVAL=2;COUNT=30", "FREQ=WEEKLY;BYDAY=MO,FR;COUNT=77", "FREQ=WEEKLY",
              "FREQ=WEEKLY;INTERVAL=2;BYDAY=MO,TH", "FREQ=WEEKLY;INTERVAL=3;WKST=SU;BYDAY=SU,TU",
              "FREQ=WEEKLY;UNTIL=20260110T000000Z", "FREQ=MONTHLY;BYDAY=2TU",
              "FREQ=MONTHLY;BYDAY=-1FR", "FREQ=MONTHLY;INTERVAL=5;BYMONTHDAY=31",
              "FREQ=MONTHLY;BYDAY=MO,TU,WE,TH,FR;BYSETPOS=-1", "FREQ=MONTHLY;BYMONTHDAY=-1",
              "FREQ=YEARLY", "FREQ=YEARLY;INTERVAL=2;BYMONTH=1,7;BYDAY=1MO",
              "FREQ=YEARLY;BYWEEKNO=20;BYDAY=WE", "FREQ=YEARLY;BYYEARDAY=100,-1",
              "FREQ=DAILY;BYHOUR=8,16;BYMINUTE=15"}) {
            QTest::newRow(rule) << QByteArray(rule);
        }
    }

    void aRuleGivesNearTheWindowWhatItGivesFromItsStart() {
        QFETCH(QByteArray, rule);
        ZoneTable zones({});
        std::vector<Event> events;
        events.push_back(*parseEvent(
            {("BEGIN:VEVENT\r\nDTSTART;TZID=Europe/Berlin:20250131T091500\r\nDURATION:PT1H\r\n"
              "RRULE:" +
              rule + "\r\nEND:VEVENT\r\n")
                 .toStdString(),
             "u"},
            zones));
        const std::int64_t first = 1'738'000'000; // three days before the start
        const auto all = startsOf(events, {first, first + 800 * secondsPerDay});
        QVERIFY(!all.empty());
        QVERIFY(all.size() < 1900);
        std::vector<std::int64_t> byWeeks;
        for (int week = 0; week * 7 < 800; ++week) {
            const std::int64_t from = first + week * 7 * secondsPerDay;
            const std::int64_t to = std::min(from + 7 * secondsPerDay, first + 800 * secondsPerDay);
            const auto some = startsOf(events, {from, to});
            byWeeks.insert(byWeeks.end(), some.begin(), some.end());
        }
        QCOMPARE(byWeeks, all);
    }
};

QTEST_GUILESS_MAIN(EventSeriesTest)
#include "EventSeriesTest.moc"
