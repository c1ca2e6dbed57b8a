#pragma once

#include "KeyedRows.h"
#include "ShelfItem.h"

#include <QUuid>

namespace perchly {

class Preferences;
class ShelfLibrary;
class ShelfModel;

/// A setup of the shelf that the user saved under a name. Names need not be unique.
struct SavedLayout {
    QUuid id;
    QString name;           ///< never empty, without surrounding white space
    QList<ShelfItem> items; ///< the whole library, in order
    bool favoritesOnly = false;
    QString left; ///< titles of the pinned widgets
    QString right;

    [[nodiscard]] static constexpr auto fields() {
        return std::tuple(
            std::pair(QLatin1StringView("id"), &SavedLayout::id),
            std::pair(QLatin1StringView("name"), &SavedLayout::name),
            std::pair(QLatin1StringView("items"), &SavedLayout::items),
            std::pair(QLatin1StringView("favoritesOnly"), &SavedLayout::favoritesOnly),
            std::pair(QLatin1StringView("left"), &SavedLayout::left),
            std::pair(QLatin1StringView("right"), &SavedLayout::right));
    }
};

/// Named setups of the shelf, oldest first. Row fields: "id" and "name". Every change is stored, or
/// ignored if it is too large. Main thread only.
class SavedLayouts : public perchly::KeyedRows {
    Q_OBJECT
public:
    /// Loads the layouts. Unreadable data stays stored until a layout is saved or deleted.
    SavedLayouts(Preferences &preferences, ShelfLibrary &library, ShelfModel &model,
                 QObject *parent = nullptr);

    [[nodiscard]] const QList<SavedLayout> &list() const { return m_layouts; }
    /// Saves the current setup under the trimmed name; does nothing if it is blank.
    Q_INVOKABLE void save(const QString &name);
    /// Restores a setup. An unknown widget becomes the clock on the left or the timer on the right.
    Q_INVOKABLE void apply(const QUuid &id);
    Q_INVOKABLE void remove(const QUuid &id);

private:
    void setLayouts(const QList<SavedLayout> &layouts);
    void show(const QList<SavedLayout> &layouts);

    Preferences &m_preferences;
    ShelfLibrary &m_library;
    ShelfModel &m_model;
    QList<SavedLayout> m_layouts;
};

} // namespace perchly
