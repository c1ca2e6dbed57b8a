#pragma once

#include "EventSeries.h"

#include <QByteArray>
#include <QString>

/// What the reader says: one JSON object a line.
namespace perchly::readeroutput {

/// {"calendar": name, "path": path}
[[nodiscard]] QByteArray calendar(const QString &name, const QString &path);
/// {"folder": path}: where something may change
[[nodiscard]] QByteArray folder(const QString &path);
/// {"file": path, "torn": true or false}: its number is its place among these lines
[[nodiscard]] QByteArray file(const QString &path, bool torn);
/// {"event": identifier, "in": file number, "start": …, "end": …, "allDay": …, "title": …, "url":
/// …, "location": …, "notes": …}, times in seconds since 1970; a text that there is not is left out
[[nodiscard]] QByteArray event(const Occurrence &occurrence, std::size_t fileNumber);
/// {"end": "all"}, or "some" if not everything could be read in the time and memory there is
[[nodiscard]] QByteArray end(bool all);

} // namespace perchly::readeroutput
