#include "ExtrasRows.h"

#include "Productivity.h"
#include "ShownText.h"

namespace perchly {

void ExtrasRows::setExtras(ShelfExtras *extras) {
    if (m_extras == extras) {
        return;
    }
    if (m_extras) {
        m_extras->disconnect(this);
    }
    m_extras = extras;
    if (m_extras) {
        connect(m_extras, announcement(), this, &ExtrasRows::refresh);
        refresh();
    }
    Q_EMIT extrasChanged();
}

void GroupRows::refresh() {
    const ShelfExtras *store = extras();
    if (store == nullptr) {
        return;
    }
    QList<Row> rows;
    for (const LaunchGroup &group : store->groups()) {
        QStringList labels;
        for (const QUrl &url : group.urls) {
            labels.append(inOneLine(Productivity::labelOf(url)));
        }
        rows.append({group.id.toString(),
                     {{QStringLiteral("id"), group.id.toString()},
                      {QStringLiteral("name"), inOneLine(group.name)},
                      {QStringLiteral("contents"), labels.join(QStringLiteral(", "))}}});
    }
    setRows(rows);
}

void SnippetRows::refresh() {
    const ShelfExtras *store = extras();
    if (store == nullptr) {
        return;
    }
    QList<Row> rows;
    for (const Snippet &snippet : store->snippets()) {
        rows.append({snippet.id.toString(),
                     {{QStringLiteral("id"), snippet.id.toString()},
                      {QStringLiteral("label"), rowText(snippet.text)},
                      {QStringLiteral("isBlank"), showsNothing(snippet.text)},
                      {QStringLiteral("text"), snippet.text}}});
    }
    setRows(rows);
}

void MeetingRows::refresh() {
    m_links.clear();
    const ShelfExtras *store = extras();
    const QList<Meeting> meetings = store != nullptr ? store->events() : QList<Meeting>();
    QHash<QString, QUrl> known;
    for (const Meeting &meeting : meetings) {
        const QString texts = meeting.texts();
        auto link = known.constFind(texts);
        if (link == known.cend()) {
            link = known.insert(texts, meeting.link());
        }
        m_links.insert(meeting.identifier(), *link);
    }
    look();
}

void MeetingRows::look() {
    const ShelfExtras *store = extras();
    if (store == nullptr) {
        return;
    }
    QList<Row> rows;
    for (const Meeting &meeting : store->events()) {
        const QString status = store->meetingStatus(meeting.start());
        rows.append({meeting.identifier(),
                     {{QStringLiteral("title"), inOneLine(meeting.title())},
                      {QStringLiteral("start"), meeting.startText()},
                      {QStringLiteral("status"), status},
                      {QStringLiteral("running"), status == QLatin1StringView("In progress")},
                      {QStringLiteral("link"), m_links.value(meeting.identifier())}}});
    }
    setRows(rows);
}

} // namespace perchly
