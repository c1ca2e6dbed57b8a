#pragma once

#include "LaunchGroup.h"
#include "Snippet.h"

#include <QList>
#include <QObject>
#include <QString>

namespace perchly {

struct Hosts;
class Productivity;
class ShelfLibrary;

/// The extras store: which section the workspace window shows, the launch groups, the pinned
/// snippets, and the battery line. Made on first use. Main thread only.
class ShelfExtras : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString section READ section WRITE setSection NOTIFY sectionChanged FINAL)
    Q_PROPERTY(QString firstEventTitle READ firstEventTitle NOTIFY firstEventTitleChanged FINAL)
    Q_PROPERTY(QList<perchly::LaunchGroup> groups READ groups NOTIFY groupsChanged FINAL)
    Q_PROPERTY(QList<perchly::Snippet> snippets READ snippets NOTIFY snippetsChanged FINAL)
    Q_PROPERTY(bool persist READ persist WRITE setPersist NOTIFY persistChanged FINAL)
    Q_PROPERTY(QString battery READ battery NOTIFY batteryChanged FINAL)
public:
    /// Loads the groups and, if they are to be kept, the snippets. The hosts must outlive the
    /// store.
    explicit ShelfExtras(Hosts &hosts, QObject *parent = nullptr);

    /// The selected section of the workspace window, by its title.
    [[nodiscard]] QString section() const { return m_section; }
    void setSection(const QString &section);

    // Launch groups (LaunchGroups.cpp)

    /// Oldest first. Every assignment is stored.
    [[nodiscard]] const QList<LaunchGroup> &groups() const { return m_groups; }
    void setGroups(const QList<LaunchGroup> &groups);
    /// Saves what the shelf shows and the tray holds under the name, trimmed; a blank name does
    /// nothing.
    Q_INVOKABLE void saveGroup(const QString &name, const perchly::ShelfLibrary *library,
                               const perchly::Productivity *tools);
    /// Asks the desktop to open everything of the group, in order. The last one in that order that
    /// cannot be opened is named in the message of `tools`.
    Q_INVOKABLE void launchGroup(const QUuid &id, perchly::Productivity *tools);
    Q_INVOKABLE void removeGroup(const QUuid &id);

    // Pinned snippets (PinnedSnippets.cpp)

    /// Pinned texts, oldest first. Every assignment goes through persistSnippets().
    [[nodiscard]] const QList<Snippet> &snippets() const { return m_snippets; }
    void setSnippets(const QList<Snippet> &snippets);
    /// Adds a text as it is. An empty one, and one that is pinned already, changes nothing.
    Q_INVOKABLE void pin(const QString &text);
    Q_INVOKABLE void removeSnippet(const QUuid &id);
    /// Whether pinned snippets outlive the run; false where nothing is stored.
    [[nodiscard]] bool persist() const;
    void setPersist(bool persist);
    /// Stores the snippets if they are to be kept, else deletes those that are stored.
    void persistSnippets();

    /// Title of the first of the upcoming events; empty without one.
    [[nodiscard]] QString firstEventTitle() const { return m_firstEventTitle; }

    /// One line on the battery.
    [[nodiscard]] QString battery() const { return m_battery; }

Q_SIGNALS:
    void sectionChanged();
    void groupsChanged();
    void snippetsChanged();
    void persistChanged();
    void firstEventTitleChanged();
    void batteryChanged();

private:
    void loadGroups();
    void loadSnippets();

    Hosts &m_hosts;
    QString m_section = QStringLiteral("Search");
    QList<LaunchGroup> m_groups;
    QList<Snippet> m_snippets;
    QString m_firstEventTitle;
    QString m_battery = QStringLiteral("Checking battery…");
};

} // namespace perchly
