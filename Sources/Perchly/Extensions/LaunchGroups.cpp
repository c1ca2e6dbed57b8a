// Applications, files and links that are opened together.

#include "Hosts.h"
#include "PreferenceKeys.h"
#include "Productivity.h"
#include "ShelfExtras.h"
#include "ShelfLibrary.h"

#include <QPointer>

#include <algorithm>
#include <memory>

namespace perchly {

namespace {

QList<QUrl> presentUrls(const ShelfLibrary &library, const Productivity &tools) {
    QList<QUrl> urls;
    const auto add = [&urls](const QUrl &url) {
        if (!urls.contains(url)) {
            urls.append(url);
        }
    };
    const QList<ShelfItem> shown = library.shown();
    for (const ShelfItem &item : shown) {
        if (!item.applicationPath().isEmpty()) {
            add(QUrl::fromLocalFile(item.applicationPath()));
        }
    }
    for (const QUrl &url : tools.held()) {
        add(url);
    }
    return urls;
}

/// The last part of the address's path, or the whole address where it has none.
QString lastPathComponent(const QUrl &url) {
    const QString path = url.adjusted(QUrl::StripTrailingSlash).path();
    const QString name = path.mid(path.lastIndexOf(u'/') + 1);
    return name.isEmpty() ? Productivity::labelOf(url) : name;
}

} // namespace

void ShelfExtras::loadGroups() {
    const auto stored = m_hosts.preferences->data(keys::launchGroups);
    m_groups = (stored ? decodeGroups(*stored) : std::nullopt).value_or(QList<LaunchGroup>());
    setGroups(m_groups);
}

void ShelfExtras::setGroups(const QList<LaunchGroup> &groups) {
    if (m_hosts.preferences->setData(keys::launchGroups, encodeGroups(groups))) {
        m_groups = groups;
        Q_EMIT groupsChanged();
    }
}

void ShelfExtras::saveGroup(const QString &name, const ShelfLibrary *library,
                            const Productivity *tools) {
    const QString trimmed = name.trimmed();
    if (!trimmed.isEmpty()) {
        setGroups(m_groups + QList{LaunchGroup{.id = QUuid::createUuid(),
                                               .name = trimmed,
                                               .urls = presentUrls(*library, *tools)}});
    }
}

void ShelfExtras::launchGroup(const QUuid &id, Productivity *tools) {
    const auto found = std::ranges::find(m_groups, id, &LaunchGroup::id);
    if (found == m_groups.cend()) {
        return;
    }
    // The desktop may answer in another order than it was asked.
    const auto lastFailed = std::make_shared<qsizetype>(-1);
    const QList<QUrl> urls = found->urls;
    for (qsizetype place = 0; place < urls.size(); ++place) {
        const QUrl &url = urls.at(place);
        const auto opened = [guard = QPointer(tools), url, place,
                             lastFailed](const QString &error) {
            if (guard && !error.isEmpty() && place > *lastFailed) {
                *lastFailed = place;
                guard->setMessage(QStringLiteral("Could not open ") + lastPathComponent(url));
            }
        };
        if (url.isLocalFile()) {
            m_hosts.applications->open(url.toLocalFile(), opened);
        } else {
            m_hosts.applications->openUrl(url, opened);
        }
    }
}

void ShelfExtras::removeGroup(const QUuid &id) {
    QList<LaunchGroup> groups = m_groups;
    if (groups.removeIf([&id](const LaunchGroup &group) { return group.id == id; }) > 0) {
        setGroups(groups);
    }
}

} // namespace perchly
