#pragma once

#include <QString>
#include <QUrl>

namespace perchly {

/// The first link in the text to a video meeting: "https" or "http", in lower case, with the host
/// zoom.us, meet.google.com, teams.microsoft.com, teams.live.com, webex.com or a subdomain. Handles
/// links in brackets, at ends of sentences and in HTML. Invalid if there is no link. Any thread.
[[nodiscard]] QUrl findMeetingLink(const QString &text);

} // namespace perchly
