#include "ShelfExtras.h"

#include "Hosts.h"

#include <algorithm>

namespace perchly {

using namespace std::chrono_literals;

ShelfExtras::ShelfExtras(Hosts &hosts, ShellActions *shell, QObject *parent)
    : QObject(parent)
    , m_hosts(hosts)
    , m_shell(shell) {
    connect(hosts.power.get(), &PowerSources::changed, this, &ShelfExtras::refreshBattery);
    refreshBattery();
    m_poll = hosts.clock->every(30s, [this] { refreshBattery(); });
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
