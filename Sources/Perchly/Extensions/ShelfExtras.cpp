#include "ShelfExtras.h"

#include "Hosts.h"
#include "Productivity.h"

#include <algorithm>

namespace perchly {

using namespace std::chrono_literals;

ShelfExtras::ShelfExtras(Hosts &hosts, ShelfLibrary &library, Productivity &productivity,
                         ShellActions &shell, QObject *parent)
    : QObject(parent)
    , m_quickLook(*hosts.quickLook)
    , m_groups(*hosts.preferences, *hosts.applications, *hosts.catalog, library,
               *productivity.held(), productivity.failureNotice())
    , m_snippets(*hosts.preferences)
    , m_meetings(*hosts.calendars, *hosts.clock)
    , m_battery(*hosts.power)
    , m_capture(*hosts.screenCapture, *hosts.clock, shell)
    , m_search(library, *productivity.clipboard(), m_snippets, *productivity.held(),
               *hosts.preferences) {
    connect(&m_capture, &Capture::captured, this,
            [this, held = productivity.held()](const QUrl &file) {
                held->hold({file});
                setSection(QStringLiteral("Files"));
            });
    connect(&m_capture, &Capture::errorChanged, this, [this, notice = productivity.notice()] {
        const QString error = m_capture.error();
        if (!error.isEmpty() && m_section != QStringLiteral("Device")) { // which shows it
            m_capture.dismissError();
            notice(error);
        }
    });
    m_poll = hosts.clock->every(30s, [this] {
        m_battery.refresh();
        m_meetings.refresh();
    });
}

void ShelfExtras::setSection(const QString &section) {
    m_section = section;
    Q_EMIT sectionChanged();
}

void ShelfExtras::togglePreview(const QUrl &url, const QList<QUrl> &among) {
    const bool listed = among.contains(url);
    m_quickLook.look(listed ? among : QList{url}, std::max<qsizetype>(among.indexOf(url), 0));
}

} // namespace perchly
