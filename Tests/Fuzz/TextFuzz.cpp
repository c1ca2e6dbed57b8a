#include "Fuzz.h"
#include "MeetingLinks.h"
#include "ShownText.h"
#include "TextSearch.h"

void perchly::fuzz(const QByteArray &input) {
    const QString text = QString::fromUtf8(input);
    const QString name = visibleName(text);
    assert(visibleName(name) == name && inOneLine(name) == name);
    assert(rowText(text).isValidUtf16() && rowText(text).size() <= 2000);
    assert(matchesSearch(text.normalized(QString::NormalizationForm_D), text));
    const QUrl link = findMeetingLink(text);
    assert(link.isEmpty() || (link.isValid() && link.scheme().startsWith(u"http")));
}
