#pragma once

#include <QString>
#include <QUrl>

namespace perchly {

/// The first link of the text that leads to a video meeting: to one of the hosts zoom.us,
/// meet.google.com, teams.microsoft.com, teams.live.com and webex.com or below one, by "https" or
/// "http" in lower case. The text is as people and programs write it: links stand in brackets and
/// at the ends of sentences, and in HTML. Invalid without one. Any thread.
[[nodiscard]] QUrl findMeetingLink(const QString &text);

} // namespace perchly
