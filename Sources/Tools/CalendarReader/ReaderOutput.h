#pragma once

#include "EventSeries.h"

#include <QByteArray>
#include <QString>

/// What the reader says: one JSON object a line.
namespace perchly::readeroutput {

/// {"calendar": name, "place": a path, or the account it belongs to}
[[nodiscard]] QByteArray calendar(const QString &name, const QString &place);
/// {"folder": path}: where something may change
[[nodiscard]] QByteArray folder(const QString &path);
/// {"serviceFolder": path}: where the desktop's calendar service keeps what it knows, and writes
/// also when it is only asked
[[nodiscard]] QByteArray serviceFolder(const QString &path);
/// {"service": "mute"}: it did not say which calendars there are
[[nodiscard]] QByteArray muteService();
/// {"file": path, "torn": true or false}: its number is its place among these lines. A calendar of
/// the service is one, too, "service:" and its uid.
[[nodiscard]] QByteArray file(const QString &path, bool torn);
/// {"event": identifier, "in": file number, "start": …, "end": …, "allDay": …, "title": …, "url":
/// …, "location": …, "notes": …}, times in seconds since 1970; a text that there is not is left out
[[nodiscard]] QByteArray event(const Occurrence &occurrence, std::size_t fileNumber);
/// {"end": "all"}, or "some" if not everything could be read in the time and memory there is
[[nodiscard]] QByteArray end(bool all);

} // namespace perchly::readeroutput
