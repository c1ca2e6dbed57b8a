#include "MeetingLinks.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace perchly {

namespace {

constexpr std::array meetingHosts{
    QLatin1StringView("zoom.us"),
    QLatin1StringView("meet.google.com"),
    QLatin1StringView("teams.microsoft.com"),
    QLatin1StringView("teams.live.com"),
    QLatin1StringView("webex.com"),
};

bool isMeetingHost(const QString &host) {
    return std::ranges::any_of(meetingHosts, [&host](QLatin1StringView known) {
        return host == known ||
               (host.endsWith(known) && host.at(host.size() - known.size() - 1) == u'.');
    });
}

/// The length up to a closing bracket that has no opening one in the link.
qsizetype endOfBrackets(QStringView link) {
    constexpr QStringView opening = u"([{";
    constexpr QStringView closing = u")]}";
    std::array<int, 3> open{};
    for (qsizetype at = 0; at < link.size(); ++at) {
        const qsizetype opened = opening.indexOf(link[at]);
        const qsizetype closed = closing.indexOf(link[at]);
        if (opened >= 0) {
            ++open[std::size_t(opened)];
        } else if (closed >= 0 && --open[std::size_t(closed)] < 0) {
            return at;
        }
    }
    return link.size();
}

/// The link without brackets and punctuation of the text around it.
QString trimmed(QStringView found) {
    QStringView link = found.first(endOfBrackets(found));
    while (!link.isEmpty() && QStringView(u".,;:!?'*_~…([{").contains(link.back())) {
        link.chop(1);
    }
    QString text = link.toString();
    // HTML for "&"; rare in plain links.
    text.replace(QLatin1StringView("&amp;"), QLatin1StringView("&"));
    return text;
}

} // namespace

QUrl findMeetingLink(const QString &text) {
    // Links end at characters that end links in browsers, and at HTML entities other than "&amp;".
    // The pattern skips words that are not a scheme and never backtracks: retrying a long word at
    // each letter takes seconds, and backtracking over a long link overflows the matcher's stack.
    static const QRegularExpression pattern(
        QStringLiteral(
            R"([A-Za-z][A-Za-z0-9+.\-]*+(*SKIP)://(?:(?!&(?:nbsp|lt|gt|quot|apos|#\d+|#x[\da-f]+);)[^\s<>"`\\|^“”«»‘’])++)"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
    for (auto matches = pattern.globalMatch(text); matches.hasNext();) {
        const QString link = trimmed(matches.next().capturedView());
        if (!link.startsWith(QLatin1StringView("https://")) &&
            !link.startsWith(QLatin1StringView("http://"))) {
            continue;
        }
        const QUrl url(link, QUrl::StrictMode);
        if (url.isValid() && isMeetingHost(url.host().toLower())) {
            return url;
        }
    }
    return {};
}

} // namespace perchly
