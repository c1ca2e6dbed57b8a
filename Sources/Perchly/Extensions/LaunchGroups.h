#pragma once

#include "KeyedRows.h"
#include "Notice.h"

#include <QHash>
#include <QUrl>
#include <QUuid>

#include <tuple>
#include <utility>

namespace perchly {

class ApplicationCatalog;
class Applications;
class HeldFiles;
class Preferences;
class ShelfLibrary;

/// Applications, files and links that are opened together. Names need not be unique.
struct LaunchGroup {
    QUuid id;
    QString name;
    QList<QUrl> urls; ///< absolute and distinct; desktop entries for applications

    [[nodiscard]] static constexpr auto fields() {
        return std::tuple(std::pair(QLatin1StringView("id"), &LaunchGroup::id),
                          std::pair(QLatin1StringView("name"), &LaunchGroup::name),
                          std::pair(QLatin1StringView("urls"), &LaunchGroup::urls));
    }
};

/// The launch groups, oldest first. Row fields: "id", "name", "contents", the names of the items,
/// "size", their number, and "items", the first ones as {"name": …, "url": …, "application": …},
/// the path of an application's desktop entry. Every change is stored, or ignored if it is too
/// large. Main thread only.
class LaunchGroups : public perchly::KeyedRows {
    Q_OBJECT
public:
    /// The arguments must outlive this object.
    LaunchGroups(Preferences &preferences, Applications &applications, ApplicationCatalog &catalog,
                 const ShelfLibrary &library, const HeldFiles &held, Notice notice,
                 QObject *parent = nullptr);

    [[nodiscard]] const QList<LaunchGroup> &list() const { return m_groups; }
    /// Saves the shown applications and the held files under the trimmed name; does nothing if it
    /// is blank.
    Q_INVOKABLE void save(const QString &name);
    /// Asks the desktop to open the group's items in order. A notice names the last item that
    /// failed, if any.
    Q_INVOKABLE void launch(const QUuid &id) { launch(id, {}); }
    /// Also calls `done` once all have answered, with the notice; null if none failed.
    void launch(const QUuid &id, const Notice &done);
    Q_INVOKABLE void remove(const QUuid &id);

private:
    void setGroups(const QList<LaunchGroup> &groups);
    void show(const QList<LaunchGroup> &groups);
    void showRows();
    void nameApplications();
    [[nodiscard]] QString nameOf(const QUrl &url) const;
    [[nodiscard]] QList<QUrl> presentUrls() const;

    Preferences &m_preferences;
    Applications &m_applications;
    ApplicationCatalog &m_catalog;
    const ShelfLibrary &m_library;
    const HeldFiles &m_held;
    Notice m_notice;
    QList<LaunchGroup> m_groups;
    QHash<QUrl, QString> m_names; ///< of applications; until they are read, of their files
};

} // namespace perchly
