#include "ShelfExtras.h"

#include <algorithm>

namespace perchly {

void ShelfExtras::setSection(const QString &section) {
    m_section = section;
    Q_EMIT sectionChanged();
}

void ShelfExtras::pin(const QString &text) {
    const bool known = std::ranges::find(m_snippets, text, &Snippet::text) != m_snippets.cend();
    if (!text.isEmpty() && !known) {
        m_snippets.append({QUuid::createUuid(), text});
        Q_EMIT snippetsChanged();
    }
}

} // namespace perchly
