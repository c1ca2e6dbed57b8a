#include "Snippets.h"

#include "PreferenceKeys.h"
#include "Preferences.h"
#include "ShownText.h"
#include "StoredRecords.h"

#include <algorithm>

namespace perchly {

Snippets::Snippets(Preferences &preferences, QObject *parent)
    : KeyedRows({"id", "label", "isBlank", "text"}, parent)
    , m_preferences(preferences) {
    if (persist()) {
        const QByteArray stored = preferences.data(keys::pinnedSnippets).value_or(QByteArray());
        m_snippets = decodeRecords<Snippet>(stored).value_or(QList<Snippet>());
        show();
    }
    connect(&preferences, &Preferences::changed, this, [this](const QString &key) {
        if (key == keys::persistSnippets) {
            store();
            Q_EMIT persistChanged();
        }
    });
}

void Snippets::setSnippets(const QList<Snippet> &snippets) {
    m_snippets = snippets;
    store();
    show();
    Q_EMIT changed();
}

void Snippets::show() {
    Rows rows;
    for (const Snippet &snippet : std::as_const(m_snippets)) {
        const QString id = snippet.id.toString();
        rows.append({id, {id, rowText(snippet.text), showsNothing(snippet.text), snippet.text}});
    }
    setRows(rows);
}

bool Snippets::pin(const QString &text) {
    const bool known = std::ranges::find(m_snippets, text, &Snippet::text) != m_snippets.cend();
    if (text.isEmpty() || known) {
        return true;
    }
    const QList<Snippet> snippets = m_snippets + QList{Snippet{QUuid::createUuid(), text}};
    // Checked even if they are not stored now, as they may be later.
    if (!m_preferences.checkSize(keys::pinnedSnippets, encodeRecords(snippets))) {
        return false;
    }
    setSnippets(snippets);
    return true;
}

void Snippets::remove(const QUuid &id) {
    QList<Snippet> snippets = m_snippets;
    if (snippets.removeIf([&id](const Snippet &snippet) { return snippet.id == id; }) > 0) {
        setSnippets(snippets);
    }
}

bool Snippets::persist() const {
    return m_preferences.boolean(keys::persistSnippets).value_or(false);
}

void Snippets::setPersist(bool persist) {
    m_preferences.setBoolean(keys::persistSnippets, persist);
}

void Snippets::store() {
    if (persist()) {
        m_preferences.setData(keys::pinnedSnippets, encodeRecords(m_snippets));
    } else {
        m_preferences.removeValue(keys::pinnedSnippets);
    }
}

} // namespace perchly
