#include "ShelfExtras.h"

#include "Hosts.h"

namespace perchly {

ShelfExtras::ShelfExtras(Hosts &hosts, QObject *parent)
    : QObject(parent)
    , m_hosts(hosts) {
    loadGroups();
    loadSnippets();
}

void ShelfExtras::setSection(const QString &section) {
    m_section = section;
    Q_EMIT sectionChanged();
}

} // namespace perchly
