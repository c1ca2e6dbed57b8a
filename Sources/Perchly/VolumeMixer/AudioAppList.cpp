#include "AudioAppList.h"

#include <algorithm>

namespace perchly {

AudioAppList::AudioAppList(const MixerLevels &levels, QObject *parent)
    : QAbstractListModel(parent)
    , m_levels(levels) {}

void AudioAppList::show(const QList<AudioApp> &apps) {
    const int before = count();
    for (int row = before - 1; row >= 0; --row) {
        if (std::ranges::find(apps, m_apps[row].id, &AudioApp::id) == apps.end()) {
            beginRemoveRows({}, row, row);
            m_apps.removeAt(row);
            endRemoveRows();
        }
    }
    for (int row = 0; row < int(apps.size()); ++row) {
        place(apps[row], row);
    }
    findSharedNames();
    if (count() != before) {
        Q_EMIT countChanged();
    }
}

/// The rows above that one are in place already.
void AudioAppList::place(const AudioApp &app, int row) {
    const int from = rowOf(app.id, row);
    if (from < 0) {
        beginInsertRows({}, row, row);
        m_apps.insert(row, app);
        endInsertRows();
        return;
    }
    if (from != row) {
        beginMoveRows({}, from, from, {}, row);
        m_apps.move(from, row);
        endMoveRows();
    }
    if (m_apps[row] != app) {
        m_apps[row] = app;
        Q_EMIT dataChanged(index(row), index(row), {NameRole, PathRole, ProcessRole});
    }
}

void AudioAppList::findSharedNames() {
    QSet<QString> once;
    QSet<QString> shared;
    for (const AudioApp &app : m_apps) {
        (once.contains(app.name) ? shared : once).insert(app.name);
    }
    if (shared != m_sharedNames) {
        m_sharedNames = shared;
        if (!m_apps.isEmpty()) {
            Q_EMIT dataChanged(index(0), index(count() - 1), {ProcessRole});
        }
    }
}

int AudioAppList::rowOf(AudioObject id, int first) const {
    const auto found = std::find_if(m_apps.begin() + first, m_apps.end(),
                                    [id](const AudioApp &app) { return app.id == id; });
    return found == m_apps.end() ? -1 : int(found - m_apps.begin());
}

void AudioAppList::announce(AudioObject id) {
    if (const int row = rowOf(id); row >= 0) {
        Q_EMIT dataChanged(index(row), index(row), {RoutedRole, LevelRole, PercentRole, MutedRole});
    }
}

int AudioAppList::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : count();
}

QVariant AudioAppList::data(const QModelIndex &index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const AudioApp &app = m_apps[index.row()];
    const auto found = m_levels.levels.find(app.id);
    const bool routed = found != m_levels.levels.end();
    const float level = routed ? found->second : 1.0F;
    switch (role) {
    case IdRole:
        return app.id;
    case NameRole:
        return app.name;
    case PathRole:
        return app.path;
    case RoutedRole:
        return routed;
    case LevelRole:
        return level;
    case PercentRole:
        return int(level * 100); // in single precision, where 0.29 is 29 per cent
    case MutedRole:
        return m_levels.muted.contains(app.id);
    case ProcessRole:
        return m_sharedNames.contains(app.name) ? QStringLiteral("process %1").arg(app.pid)
                                                : QString();
    default:
        return {};
    }
}

QHash<int, QByteArray> AudioAppList::roleNames() const {
    return {{IdRole, "appId"},      {NameRole, "name"},      {PathRole, "path"},
            {RoutedRole, "routed"}, {LevelRole, "level"},    {PercentRole, "percent"},
            {MutedRole, "muted"},   {ProcessRole, "process"}};
}

} // namespace perchly
