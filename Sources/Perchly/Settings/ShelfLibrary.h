#pragma once

#include "Clock.h"
#include "KeyedRows.h"
#include "ShelfItem.h"

#include <QList>

namespace perchly {

class ApplicationCatalog;
class OpenPanel;
class Preferences;

/// The shelf's entries in order. Row field: "entry", the ShelfItem. Every change is stored
/// immediately. Main thread only.
class ShelfLibrary : public perchly::KeyedRows {
    Q_OBJECT
    Q_PROPERTY(QList<perchly::ShelfItem> shown READ shown NOTIFY shownChanged FINAL)
    Q_PROPERTY(
        bool favoritesOnly READ favoritesOnly WRITE setFavoritesOnly NOTIFY shownChanged FINAL)
    Q_PROPERTY(bool someRemovable READ someRemovable NOTIFY itemsChanged FINAL)
public:
    enum class Flag { Visible, Favorite };
    Q_ENUM(Flag)

    /// Loads the stored library. If it is missing or unreadable, shows the five widgets and leaves
    /// the stored value until the first change. The hosts must outlive the library.
    ShelfLibrary(Preferences &preferences, ApplicationCatalog &catalog, OpenPanel &openPanel,
                 QObject *parent = nullptr);

    [[nodiscard]] const QList<ShelfItem> &items() const { return m_items; }
    /// Changes nothing if the items are too large to store.
    void setItems(const QList<ShelfItem> &items);
    /// Whether any entry can be removed.
    [[nodiscard]] bool someRemovable() const;

    /// Whether the shelf shows only favorites.
    [[nodiscard]] bool favoritesOnly() const { return m_favoritesOnly; }
    void setFavoritesOnly(bool favoritesOnly);

    /// This machine's applications, by name; empty until the first refresh() is done, and current
    /// from then on. A view shows them through InstalledApplications.
    [[nodiscard]] const QList<ShelfItem> &installed() const { return m_installed; }

    /// Those whose name, kind, keyword or executable matches a search, best match first. An empty
    /// search matches all.
    [[nodiscard]] QList<ShelfItem> installedMatching(const QString &search) const;

    /// Looks for applications again; returns at once. Of several searches, the last to end wins.
    Q_INVOKABLE void refresh();

    /// Lets the user choose applications in any folder and adds them in order; returns at once.
    Q_INVOKABLE void browse();

    /// The visible entries: the strip shows them, and Ctrl+1 to Ctrl+9 launch the first nine.
    [[nodiscard]] QList<ShelfItem> shown() const;

    /// Appends the item, or unhides the existing one with its identifier.
    Q_INVOKABLE void add(const perchly::ShelfItem &item);

    /// Inverts one flag of the item with that identifier, if any.
    Q_INVOKABLE void toggle(const QString &id, perchly::ShelfLibrary::Flag flag);

    /// Swaps the item with the one `offset` places away; does nothing past either end.
    Q_INVOKABLE void move(const QString &id, qsizetype offset);

    /// Removes every item with that identifier.
    Q_INVOKABLE void remove(const QString &id);

Q_SIGNALS:
    void itemsChanged();
    void shownChanged();
    void installedChanged();

private:
    void show(const QList<ShelfItem> &items);
    [[nodiscard]] qsizetype indexOf(const QString &id) const;
    void addChosen(const QList<QUrl> &urls);

    Preferences &m_preferences;
    ApplicationCatalog &m_catalog;
    OpenPanel &m_openPanel;
    Task m_browsing;
    QList<ShelfItem> m_items;
    QList<ShelfItem> m_installed;
    QStringList m_searchTexts; ///< of each installed application, folded
    bool m_favoritesOnly = false;
};

} // namespace perchly
