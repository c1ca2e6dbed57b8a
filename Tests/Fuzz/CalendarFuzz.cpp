#include "EventSeries.h"
#include "Fuzz.h"

#include <QRegularExpression>

void perchly::fuzz(const QByteArray &input) {
    // Stepping through seconds or centuries is slow; the companion has a CPU limit for that.
    static const QRegularExpression slow(QStringLiteral(
        "(?i)(second|minute|hour)ly|\\b(?!(1970|202[5-7])[01])\\d{7}|\\d{4}[wdhms]"));
    if (QString::fromLatin1(input).contains(slow)) {
        return;
    }
    icalerror_set_errors_are_fatal(0);
    // The two weeks of the examples, from 2026-03-20.
    Calendar calendar{.window = {1773964800, 1775174400}, .events = {}, .zones = {}};
    calendar.addText(input + '\n');
    Zones zones(calendar);
    std::vector<Event> series;
    for (const auto &component : calendar.events) {
        if (auto event = readEvent(component.get(), zones)) {
            series.push_back(std::move(*event));
        }
    }
    for (const Occurrence &found : occurrencesOf(series, calendar.window)) {
        assert(found.start <= found.end && found.start < calendar.window.to);
    }
}
