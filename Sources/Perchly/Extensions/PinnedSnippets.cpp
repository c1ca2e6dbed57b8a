// Short texts that are kept for copying again.

#include "Hosts.h"
#include "PreferenceKeys.h"
#include "ShelfExtras.h"

#include <algorithm>

namespace perchly {

void ShelfExtras::loadSnippets() {
    Preferences &preferences = *m_hosts.preferences;
    if (persist()) {
        const auto stored = preferences.data(keys::pinnedSnippets);
        setSnippets((stored ? decodeSnippets(*stored) : std::nullopt).value_or(QList<Snippet>()));
    }
    connect(&preferences, &Preferences::changed, this, [this](const QString &key) {
        if (key == keys::persistSnippets) {
            persistSnippets();
            Q_EMIT persistChanged();
        }
    });
}

void ShelfExtras::setSnippets(const QList<Snippet> &snippets) {
    m_snippets = snippets;
    persistSnippets();
    Q_EMIT snippetsChanged();
}

bool ShelfExtras::pin(const QString &text) {
    const bool known = std::ranges::find(m_snippets, text, &Snippet::text) != m_snippets.cend();
    if (text.isEmpty() || known) {
        return true;
    }
    const QList<Snippet> snippets = m_snippets + QList{Snippet{QUuid::createUuid(), text}};
    // Even if they are not to be stored now: they may be later.
    if (!m_hosts.preferences->checkSize(keys::pinnedSnippets, encodeSnippets(snippets))) {
        return false;
    }
    setSnippets(snippets);
    return true;
}

void ShelfExtras::removeSnippet(const QUuid &id) {
    QList<Snippet> snippets = m_snippets;
    if (snippets.removeIf([&id](const Snippet &snippet) { return snippet.id == id; }) > 0) {
        setSnippets(snippets);
    }
}

bool ShelfExtras::persist() const {
    return m_hosts.preferences->boolean(keys::persistSnippets).value_or(false);
}

void ShelfExtras::setPersist(bool persist) {
    m_hosts.preferences->setBoolean(keys::persistSnippets, persist);
}

void ShelfExtras::persistSnippets() {
    if (persist()) {
        m_hosts.preferences->setData(keys::pinnedSnippets, encodeSnippets(m_snippets));
    } else {
        m_hosts.preferences->removeValue(keys::pinnedSnippets);
    }
}

} // namespace perchly
