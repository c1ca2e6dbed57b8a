#include "ShelfExtras.h"

#include "Hosts.h"

#include <algorithm>

namespace perchly {

using namespace std::chrono_literals;

ShelfExtras::ShelfExtras(Hosts &hosts, QObject *parent)
    : QObject(parent)
    , m_hosts(hosts) {
    connect(hosts.calendars.get(), &CalendarStore::changed, this, &ShelfExtras::refreshEvents);
    m_poll = hosts.clock->every(30s, [this] { refreshEvents(); });
}

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
