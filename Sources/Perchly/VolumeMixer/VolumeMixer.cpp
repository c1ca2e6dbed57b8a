#include "VolumeMixer.h"

#include "ShownText.h"

#include <QCoreApplication>

#include <algorithm>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr auto refreshPeriod = 2s;

/// UTF-8 sorts by code points.
QByteArray sortKey(const QString &name) {
    return name.normalized(QString::NormalizationForm_C).toUtf8();
}

QString shownName(const QString &name) {
    return shownPart(visibleName(name));
}

QList<AudioApp> sortedByName(const QList<AudioApp> &apps) {
    std::vector<std::pair<QByteArray, AudioApp>> keyed;
    keyed.reserve(size_t(apps.size()));
    for (const AudioApp &app : apps) {
        keyed.emplace_back(sortKey(app.name), app);
    }
    std::ranges::stable_sort(keyed, {}, &std::pair<QByteArray, AudioApp>::first);
    QList<AudioApp> sorted;
    sorted.reserve(apps.size());
    for (auto &[key, app] : keyed) {
        sorted.append(std::move(app));
    }
    return sorted;
}

} // namespace

VolumeMixer::VolumeMixer(AudioSystem &audio, Clock &clock, QObject *parent)
    : QObject(parent)
    , m_audio(audio)
    , m_clock(clock)
    , m_supported(audio.canRouteProcesses()) {
    connect(&audio, &AudioSystem::changed, this, [this] {
        if (m_routes.empty()) {
            compareOutput(); // a route enabled before the next refresh plays to it
        }
        const bool otherOutput = m_audio.defaultOutput() != m_output;
        if (m_audio.canRouteProcesses() != m_supported || otherOutput) {
            refresh();
        } else {
            scheduleRefresh();
        }
    });
    scheduleRefresh();
}

VolumeMixer::~VolumeMixer() {
    releaseAll();
}

void VolumeMixer::scheduleRefresh() {
    if (!m_next) {
        m_next = m_clock.after(refreshPeriod, [this] {
            m_next.reset();
            refresh();
            // Routes do not announce changes of their state.
            if (!m_routes.empty()) {
                scheduleRefresh();
            }
        });
    }
}

void VolumeMixer::refresh() {
    readSupport();
    if (!m_supported) {
        return;
    }
    compareOutput();
    releaseStopped();
    const auto processes = m_audio.processes();
    if (!processes) {
        return;
    }
    QList<AudioApp> apps;
    for (const AudioProcess &process : *processes) {
        if (const auto app = appOf(process)) {
            apps.append(*app);
        }
    }
    publish(apps);
}

void VolumeMixer::readSupport() {
    const bool supported = m_audio.canRouteProcesses();
    if (supported != m_supported) {
        m_supported = supported;
        Q_EMIT supportedChanged();
    }
}

void VolumeMixer::compareOutput() {
    const AudioObject output = m_audio.defaultOutput();
    if (m_output != 0 && m_output != output && !m_routes.empty()) {
        releaseAll();
        setError(tr("Output device changed. App audio was restored; enable mixing "
                    "again for this output."));
    }
    m_output = output;
}

void VolumeMixer::releaseStopped() {
    for (const AudioObject id : routed()) {
        const auto route = m_routes.find(id);
        if (route != m_routes.end() && !route->second->isRunning()) {
            release(id);
            setError(tr("An audio route stopped. Original app output has been restored."));
        }
    }
}

std::optional<AudioApp> VolumeMixer::appOf(const AudioProcess &process) const {
    if (!process.pid ||
        (!process.isSandboxed && *process.pid == QCoreApplication::applicationPid())) {
        return std::nullopt;
    }
    if (!process.isRunningOutput.value_or(false) && !m_routes.contains(process.object)) {
        return std::nullopt;
    }
    AudioApp app{process.object, {}, process.bundleId.value_or(QString()), *process.pid, {}};
    if (const auto application = m_audio.application(app.id)) {
        app.name = shownName(application->name);
        app.path = application->path;
    }
    if (app.name.isEmpty()) {
        app.name = shownName(app.bundleId);
    }
    if (app.name.isEmpty()) {
        app.name = tr("Audio process %1").arg(app.pid);
    }
    return app;
}

void VolumeMixer::publish(const QList<AudioApp> &apps) {
    for (const AudioObject id : routed()) {
        if (std::ranges::find(apps, id, &AudioApp::id) == apps.end()) {
            release(id);
        }
    }
    m_apps.show(sortedByName(apps));
}

void VolumeMixer::enable(quint32 id) {
    if (!m_audio.canRouteProcesses()) {
        setError(tr("Per-app audio needs PipeWire, which is not running."));
        return;
    }
    if (m_routes.contains(id)) {
        return;
    }
    QString error;
    auto route = MixerRoute::make(m_audio, id, error);
    if (!route) {
        setError(error);
        return;
    }
    m_routes.emplace(id, std::move(route));
    m_levels.levels[id] = 1;
    scheduleRefresh();
    m_apps.refresh();
    Q_EMIT routingChanged();
}

void VolumeMixer::release(quint32 id) {
    m_routes.erase(id);
    m_levels.levels.erase(id);
    m_levels.muted.erase(id);
    m_apps.refresh();
    Q_EMIT routingChanged();
}

void VolumeMixer::releaseAll() {
    for (const AudioObject id : routed()) {
        release(id);
    }
}

void VolumeMixer::set(quint32 id, float volume) {
    const auto route = m_routes.find(id);
    if (!m_audio.canRouteProcesses() || route == m_routes.end()) {
        return;
    }
    m_levels.levels[id] = volume;
    route->second->setGain(m_levels.muted.contains(id) ? 0 : volume);
    m_apps.refresh();
}

void VolumeMixer::mute(quint32 id) {
    const auto level = m_levels.levels.find(id);
    if (!m_audio.canRouteProcesses() || level == m_levels.levels.end()) {
        return;
    }
    if (m_levels.muted.erase(id) == 0) {
        m_levels.muted.insert(id);
    }
    set(id, level->second);
}

QList<AudioObject> VolumeMixer::routed() const {
    QList<AudioObject> ids;
    for (const auto &[id, route] : m_routes) {
        ids.append(id);
    }
    return ids;
}

void VolumeMixer::setError(const QString &error) {
    m_error = error;
    Q_EMIT errorChanged();
}

} // namespace perchly
