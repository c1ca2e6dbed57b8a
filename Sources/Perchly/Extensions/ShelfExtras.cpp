#include "ShelfExtras.h"

#include "Hosts.h"

namespace perchly {

using namespace std::chrono_literals;

ShelfExtras::ShelfExtras(Hosts &hosts, QObject *parent)
    : QObject(parent)
    , m_hosts(hosts) {
    loadGroups();
    loadSnippets();
    connect(hosts.calendars.get(), &CalendarStore::changed, this, &ShelfExtras::refreshEvents);
    m_poll = hosts.clock->every(30s, [this] { refreshEvents(); });
}

void ShelfExtras::setSection(const QString &section) {
    m_section = section;
    Q_EMIT sectionChanged();
}

} // namespace perchly
