#pragma once

#include "AudioAppList.h"
#include "AudioSystem.h"
#include "Clock.h"
#include "MixerRoute.h"

#include <memory>

namespace perchly {

/// Lists the processes that play audio, and routes those that the user enables through a ring, to
/// set their level or mute them. Refreshes every two seconds while something is routed or has
/// changed, ends routes when the default output changes or a process ends, and keeps the last
/// message for the user. Stores nothing. Main thread only.
class VolumeMixer : public QObject {
    Q_OBJECT
    Q_PROPERTY(perchly::AudioAppList *apps READ appList CONSTANT FINAL)
    Q_PROPERTY(QString error READ error NOTIFY errorChanged FINAL)
    Q_PROPERTY(bool routing READ routing NOTIFY routingChanged FINAL)
    Q_PROPERTY(bool supported READ supported NOTIFY supportedChanged FINAL)
public:
    /// Both arguments must outlive the mixer. The owner of the audio system starts it.
    VolumeMixer(AudioSystem &audio, Clock &clock, QObject *parent = nullptr);
    /// Ends all routes.
    ~VolumeMixer() override;
    Q_DISABLE_COPY_MOVE(VolumeMixer)

    /// Sorted by the code points of the normalised names, so upper case comes first. A routed
    /// process stays listed while it is silent.
    [[nodiscard]] const QList<AudioApp> &apps() const { return m_apps.apps(); }
    [[nodiscard]] AudioAppList *appList() { return &m_apps; }
    [[nodiscard]] const std::map<AudioObject, float> &levels() const { return m_levels.levels; }
    [[nodiscard]] const std::set<AudioObject> &muted() const { return m_levels.muted; }
    /// The last failure or notice, kept until the next one; null if there was none.
    [[nodiscard]] QString error() const { return m_error; }
    /// Whether any process is routed.
    [[nodiscard]] bool routing() const { return !m_routes.empty(); }
    /// Whether the audio system can route a single process.
    [[nodiscard]] bool supported() const { return m_supported; }

    /// Checks the default output, the routes and the processes for changes.
    Q_INVOKABLE void refresh();
    /// Routes the process at level 1; does nothing if it is routed already.
    Q_INVOKABLE void enable(quint32 id);
    /// Sends the process back to its own output and forgets its level and mute.
    Q_INVOKABLE void release(quint32 id);
    Q_INVOKABLE void releaseAll();
    /// Sets the level of a routed process; ignores others.
    Q_INVOKABLE void set(quint32 id, float volume);
    /// Mutes or unmutes a routed process; ignores others.
    Q_INVOKABLE void mute(quint32 id);

Q_SIGNALS:
    void errorChanged();
    void routingChanged();
    void supportedChanged();

private:
    void scheduleRefresh();
    void readSupport();
    void compareOutput();
    void releaseStopped();
    [[nodiscard]] std::optional<AudioApp> appOf(const AudioProcess &process) const;
    void publish(const QList<AudioApp> &apps);
    [[nodiscard]] QList<AudioObject> routed() const;
    void setError(const QString &error);

    AudioSystem &m_audio;
    Clock &m_clock;
    MixerLevels m_levels;
    AudioAppList m_apps{m_levels};
    QString m_error;
    std::map<AudioObject, std::unique_ptr<MixerRoute>> m_routes;
    AudioObject m_output = 0; ///< at the last refresh; 0 before the first
    bool m_supported = false;
    Task m_next; ///< the next refresh
};

} // namespace perchly
