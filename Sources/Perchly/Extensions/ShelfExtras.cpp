#include "ShelfExtras.h"

#include "Hosts.h"

namespace perchly {

using namespace std::chrono_literals;

ShelfExtras::ShelfExtras(Hosts &hosts, ShellActions *shell, QObject *parent)
    : QObject(parent)
    , m_hosts(hosts)
    , m_shell(shell) {
    loadGroups();
    loadSnippets();
    connect(hosts.power.get(), &PowerSources::changed, this, &ShelfExtras::refreshBattery);
    connect(hosts.calendars.get(), &CalendarStore::changed, this, &ShelfExtras::refreshEvents);
    refreshBattery();
    m_poll = hosts.clock->every(30s, [this] {
        refreshBattery();
        refreshEvents();
    });
}

void ShelfExtras::setSection(const QString &section) {
    m_section = section;
    Q_EMIT sectionChanged();
}

} // namespace perchly
