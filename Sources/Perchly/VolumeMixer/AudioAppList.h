#pragma once

#include "AudioApp.h"

#include <QAbstractListModel>
#include <QList>
#include <QSet>

#include <map>
#include <set>

namespace perchly {

/// What the mixer does to the processes that it has routed. One has a level exactly while it is
/// routed.
struct MixerLevels {
    std::map<AudioObject, float> levels; ///< 0…1
    std::set<AudioObject> muted;
};

/// The mixer's processes for a view. A row stays the same one as long as its process is listed,
/// wherever it moves to, so that a slider can be dragged meanwhile.
class AudioAppList : public QAbstractListModel {
    Q_OBJECT
    Q_PROPERTY(int count READ count NOTIFY countChanged FINAL)
public:
    enum Role {
        IdRole = Qt::UserRole, ///< "appId"
        NameRole,              ///< "name"
        PathRole,              ///< "path": the application's desktop entry; empty when it has none
        RoutedRole,            ///< "routed"
        LevelRole,             ///< "level"; 1 when it is not routed
        PercentRole,           ///< "percent": the level, rounded down
        MutedRole,             ///< "muted"
        ProcessRole,           ///< "process": which one, in words, where others have the same name
    };

    /// The levels must outlive the list.
    explicit AudioAppList(const MixerLevels &levels, QObject *parent = nullptr);

    [[nodiscard]] const QList<AudioApp> &apps() const { return m_apps; }
    [[nodiscard]] int count() const { return int(m_apps.size()); }
    void show(const QList<AudioApp> &apps);
    /// The levels of that process have changed.
    void announce(AudioObject id);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void countChanged();

private:
    /// The row of that process, from `first` on; -1 without one.
    [[nodiscard]] int rowOf(AudioObject id, int first = 0) const;
    void place(const AudioApp &app, int row);
    void findSharedNames();

    const MixerLevels &m_levels;
    QList<AudioApp> m_apps;
    QSet<QString> m_sharedNames;
};

} // namespace perchly
