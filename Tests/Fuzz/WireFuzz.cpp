#include "CalendarReading.h"
#include "Fuzz.h"
#include "KeptStreams.h"
#include "Strut.h"

void perchly::fuzz(const QByteArray &input) {
    QDataStream stream(input);
    CalendarReading reading;
    stream >> reading.list;
    reading.list.calendars.append(FoundCalendar());
    reading.take({}, input, true);
    assert(reading.eventsBetween({}, Clock::TimePoint::max()).size() <= input.size());

    const std::string_view bytes(input.constData(), std::size_t(input.size()));
    KeptStreams whole;
    whole.read(bytes);
    KeptStreams parts;
    parts.read(bytes.substr(0, bytes.size() / 2));
    parts.read(bytes.substr(bytes.size() / 2));
    assert(parts.streams().size() == whole.streams().size());

    const auto *words = reinterpret_cast<const quint32 *>(input.constData());
    const QList<quint32> values(words, words + input.size() / 4);
    const QRect display(1920, 0, 1920, 1080);
    const QRect area = visibleArea(display, {3840, 1080}, {Strut::fromProperties(values, values)});
    assert(!area.isEmpty() && display.contains(area));
}
