#include "AudioAppList.h"

#include <QHash>

namespace perchly {

AudioAppList::AudioAppList(const MixerLevels &levels, QObject *parent)
    : KeyedRows({"appId", "name", "path", "routed", "level", "percent", "muted", "process"}, parent)
    , m_levels(levels) {}

void AudioAppList::show(const QList<AudioApp> &apps) {
    m_apps = apps;
    refresh();
}

void AudioAppList::refresh() {
    QHash<QString, int> named;
    for (const AudioApp &app : std::as_const(m_apps)) {
        ++named[app.name];
    }
    Rows rows;
    for (const AudioApp &app : std::as_const(m_apps)) {
        const auto found = m_levels.levels.find(app.id);
        const bool routed = found != m_levels.levels.end();
        const float level = routed ? found->second : 1.0F;
        const int percent = int(level * 100); // in single precision, where 0.29 gives 29 per cent
        rows.append(
            {QString::number(app.id),
             {app.id, app.name, app.path, routed, level, percent, m_levels.muted.contains(app.id),
              named.value(app.name) > 1 ? tr("process %1").arg(app.pid) : QString()}});
    }
    setRows(rows);
}

} // namespace perchly
