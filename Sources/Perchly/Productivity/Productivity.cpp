#include "Productivity.h"

#include "Hosts.h"
#include "ShownText.h"

namespace perchly {

Productivity::Productivity(Hosts &hosts, QObject *parent)
    : QObject(parent)
    , m_hosts(hosts)
    , m_pasteboardCount(hosts.pasteboard->changeCount()) {
    loadLayouts();
    connect(m_hosts.pasteboard.get(), &Pasteboard::changed, this, &Productivity::watchPasteboard);
    connect(m_hosts.preferences.get(), &Preferences::failed, this, [this](const QString &reason) {
        setMessage(QStringLiteral("Could not save your changes yet. %1.").arg(reason));
    });
    connect(m_hosts.preferences.get(), &Preferences::tooLarge, this, [this] {
        setMessage(QStringLiteral("There is no room to keep that. Snippets, layouts, launch groups "
                                  "and apps may take 512 KiB each."));
    });
    m_pool.setMaxThreadCount(1); // one large picture at a time
    m_pool.setExpiryTimeout(1000);
}

Productivity::~Productivity() = default;

void Productivity::setMessage(const QString &message) {
    m_message = inOneLine(message);
    Q_EMIT messageChanged();
}

} // namespace perchly
