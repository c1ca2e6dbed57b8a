#include "LaunchGroups.h"

#include "ApplicationCatalog.h"
#include "Applications.h"
#include "HeldFiles.h"
#include "PreferenceKeys.h"
#include "Preferences.h"
#include "ShelfLibrary.h"
#include "ShownText.h"
#include "StoredRecords.h"

#include <QFileInfo>
#include <QPointer>
#include <QSet>

#include <algorithm>
#include <memory>

namespace perchly {

namespace {

constexpr qsizetype maxShownItems = 12;

/// The last part of the URL's path, or the whole URL if it has no path.
QString lastPathComponent(const QUrl &url) {
    const QString path = url.adjusted(QUrl::StripTrailingSlash).path();
    const QString name = path.mid(path.lastIndexOf(u'/') + 1);
    return name.isEmpty() ? HeldFiles::labelOf(url) : name;
}

} // namespace

LaunchGroups::LaunchGroups(Preferences &preferences, Applications &applications,
                           ApplicationCatalog &catalog, const ShelfLibrary &library,
                           const HeldFiles &held, Notice notice, QObject *parent)
    : KeyedRows({"id", "name", "contents", "size", "items"}, parent)
    , m_preferences(preferences)
    , m_applications(applications)
    , m_catalog(catalog)
    , m_library(library)
    , m_held(held)
    , m_notice(std::move(notice)) {
    const QByteArray stored = preferences.data(keys::launchGroups).value_or(QByteArray());
    show(decodeRecords<LaunchGroup>(stored).value_or(QList<LaunchGroup>()));
}

void LaunchGroups::setGroups(const QList<LaunchGroup> &groups) {
    if (m_preferences.setData(keys::launchGroups, encodeRecords(groups))) {
        show(groups);
    }
}

void LaunchGroups::show(const QList<LaunchGroup> &groups) {
    m_groups = groups;
    nameApplications();
    showRows();
}

void LaunchGroups::nameApplications() {
    QStringList paths;
    for (const LaunchGroup &group : std::as_const(m_groups)) {
        for (const QUrl &url : group.urls) {
            const QFileInfo file(url.toLocalFile());
            if (file.suffix() == QLatin1StringView("desktop") && !m_names.contains(url)) {
                m_names.insert(url, file.completeBaseName());
                paths.append(file.filePath());
            }
        }
    }
    if (paths.isEmpty()) {
        return;
    }
    m_catalog.describe(paths, [guard = QPointer(this)](const QList<FoundApplication> &found) {
        if (guard) {
            for (const FoundApplication &application : found) {
                guard->m_names.insert(QUrl::fromLocalFile(application.path), application.name);
            }
            guard->showRows();
        }
    });
}

QString LaunchGroups::nameOf(const QUrl &url) const {
    return inOneLine(m_names.value(url, HeldFiles::labelOf(url)));
}

void LaunchGroups::showRows() {
    Rows rows;
    for (const LaunchGroup &group : std::as_const(m_groups)) {
        QStringList names;
        QVariantList items;
        for (const QUrl &url : group.urls) {
            names.append(nameOf(url));
            if (items.size() < maxShownItems) {
                items.append(QVariantMap{{QStringLiteral("name"), names.constLast()},
                                         {QStringLiteral("url"), url},
                                         {QStringLiteral("application"),
                                          m_names.contains(url) ? url.toLocalFile() : QString()}});
            }
        }
        const QString id = group.id.toString();
        rows.append({id,
                     {id, inOneLine(group.name), shownPart(names.join(QStringLiteral(", "))),
                      names.size(), items}});
    }
    setRows(rows);
}

QList<QUrl> LaunchGroups::presentUrls() const {
    QList<QUrl> urls;
    QSet<QUrl> known;
    const auto add = [&](const QUrl &url) {
        if (!known.contains(url)) {
            known.insert(url);
            urls.append(url);
        }
    };
    const QList<ShelfItem> shown = m_library.shown();
    for (const ShelfItem &item : shown) {
        if (!item.applicationPath().isEmpty()) {
            add(QUrl::fromLocalFile(item.applicationPath()));
        }
    }
    std::ranges::for_each(m_held.urls(), add);
    return urls;
}

void LaunchGroups::save(const QString &name) {
    if (!name.trimmed().isEmpty()) {
        setGroups(m_groups + QList{LaunchGroup{.id = QUuid::createUuid(),
                                               .name = name.trimmed(),
                                               .urls = presentUrls()}});
    }
}

void LaunchGroups::launch(const QUuid &id, const Notice &done) {
    const auto found = std::ranges::find(m_groups, id, &LaunchGroup::id);
    if (found == m_groups.cend()) {
        return;
    }
    const QList<QUrl> urls = found->urls;
    struct Answers {
        qsizetype missing;
        qsizetype lastFailed; // they may arrive in another order than the requests
        QString error;
    };
    const auto answers =
        std::make_shared<Answers>(Answers{.missing = urls.size(), .lastFailed = -1, .error = {}});
    if (done && urls.isEmpty()) {
        done({});
    }
    for (qsizetype place = 0; place < urls.size(); ++place) {
        const QUrl &url = urls.at(place);
        const QString name = m_names.contains(url) ? nameOf(url) : lastPathComponent(url);
        const auto opened = [notice = m_notice, done, name, place, answers](const QString &error) {
            if (!error.isEmpty() && place > answers->lastFailed) {
                answers->lastFailed = place;
                answers->error = tr("Could not open %1").arg(name);
                notice(answers->error);
            }
            if (--answers->missing == 0 && done) {
                done(answers->error);
            }
        };
        if (url.isLocalFile()) {
            m_applications.open(url.toLocalFile(), opened);
        } else {
            m_applications.openUrl(url, opened);
        }
    }
}

void LaunchGroups::remove(const QUuid &id) {
    QList<LaunchGroup> groups = m_groups;
    if (groups.removeIf([&id](const LaunchGroup &group) { return group.id == id; }) > 0) {
        setGroups(groups);
    }
}

} // namespace perchly
