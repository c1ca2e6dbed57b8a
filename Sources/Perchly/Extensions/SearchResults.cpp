#include "SearchResults.h"

#include "ClipboardHistory.h"
#include "HeldFiles.h"
#include "PreferenceKeys.h"
#include "Preferences.h"
#include "ShelfLibrary.h"
#include "ShownText.h"
#include "Snippets.h"
#include "TextSearch.h"

namespace perchly {

SearchResults::SearchResults(const ShelfLibrary &library, const ClipboardHistory &clipboard,
                             const Snippets &snippets, const HeldFiles &held,
                             const Preferences &preferences, QObject *parent)
    : KeyedRows({"kind", "label", "target"}, parent)
    , m_library(library)
    , m_clipboard(clipboard)
    , m_snippets(snippets)
    , m_held(held)
    , m_preferences(preferences) {
    connect(&library, &ShelfLibrary::installedChanged, this, &SearchResults::refresh);
    connect(&clipboard, &ClipboardHistory::clipsChanged, this, &SearchResults::refresh);
    connect(&snippets, &Snippets::changed, this, &SearchResults::refresh);
    connect(&held, &HeldFiles::changed, this, &SearchResults::refresh);
    connect(&preferences, &Preferences::changed, this, [this](const QString &key) {
        if (key == keys::quickNote) {
            refresh();
        }
    });
    connect(this, &SearchResults::editingNoteChanged, this, &SearchResults::refresh);
    connect(this, &SearchResults::queryChanged, this, [this] { overwriteRows(matches()); });
    refresh();
}

void SearchResults::refresh() {
    setRows(matches());
}

KeyedRows::Rows SearchResults::matches() const {
    Rows rows;
    QString title; // of a section without rows yet
    const auto begin = [&title](const QString &next) { title = next; };
    const auto append = [&](const QString &kind, const QString &key, const QString &label,
                            const QVariant &target) {
        if (!title.isEmpty()) {
            rows.append({title, {QStringLiteral("title"), title, QVariant()}});
            title.clear();
        }
        rows.append({kind + u'/' + key, {kind, label, target}});
    };
    const auto add = [&](const QString &kind, const QString &key, const QString &text,
                         const QString &label, const QVariant &target) {
        if (matchesSearch(text, m_query)) {
            append(kind, key, label, target);
        }
    };
    begin(tr("Apps"));
    for (const ShelfItem &item : m_library.installedMatching(m_query)) {
        append(QStringLiteral("app"), item.id, item.shownName(), item.applicationPath());
    }
    const QString note = m_preferences.string(keys::quickNote).value_or(QString());
    if (m_editingNote || (!note.isEmpty() && matchesSearch(note, m_query))) {
        begin(tr("Quick note"));
        append(QStringLiteral("note"), {}, note, {});
    }
    begin(tr("Clipboard"));
    for (const Clip &clip : m_clipboard.clips()) {
        const QString label = clip.label();
        add(QStringLiteral("clip"), clip.id.toString(), label, rowText(label), clip.id);
    }
    begin(tr("Pinned snippets"));
    for (const Snippet &snippet : m_snippets.list()) {
        add(QStringLiteral("snippet"), snippet.id.toString(), snippet.text, rowText(snippet.text),
            snippet.text);
    }
    begin(tr("Held files and links"));
    for (const QUrl &url : m_held.urls()) {
        const QString address = url.toString(QUrl::FullyEncoded);
        const QString decoded = QUrl::fromPercentEncoding(address.toUtf8());
        add(QStringLiteral("held"), address, address + u'\n' + decoded,
            inOneLine(HeldFiles::labelOf(url)), url);
    }
    return rows;
}

} // namespace perchly
