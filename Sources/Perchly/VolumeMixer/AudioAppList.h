#pragma once

#include "AudioApp.h"
#include "KeyedRows.h"

#include <map>
#include <set>

namespace perchly {

/// The volumes of the routed processes; no other process has an entry.
struct MixerLevels {
    std::map<AudioObject, float> levels; ///< 0…1
    std::set<AudioObject> muted;
};

/// The mixer's processes for a view.
class AudioAppList : public perchly::KeyedRows {
    Q_OBJECT
public:
    enum Role {
        IdRole = firstRole, ///< "appId"
        NameRole,           ///< "name"
        PathRole,           ///< "path": the application's desktop entry; empty if it has none
        RoutedRole,         ///< "routed"
        LevelRole,          ///< "level"; 1 if not routed
        PercentRole,        ///< "percent": the level, rounded down
        MutedRole,          ///< "muted"
        ProcessRole,        ///< "process": tells processes with the same name apart, in words
    };

    /// `levels` must outlive the list.
    explicit AudioAppList(const MixerLevels &levels, QObject *parent = nullptr);

    [[nodiscard]] const QList<AudioApp> &apps() const { return m_apps; }
    void show(const QList<AudioApp> &apps);
    /// Call it when levels have changed.
    void refresh();

private:
    const MixerLevels &m_levels;
    QList<AudioApp> m_apps;
};

} // namespace perchly
