#pragma once

#include "AudioAppList.h"
#include "AudioSystem.h"
#include "Clock.h"
#include "MixerRoute.h"

#include <memory>

namespace perchly {

/// Lists the processes that play audio and routes those that the person has chosen through the
/// program, to set their level or mute them. It looks again every two seconds while something is
/// routed or has changed, gives routes back when the default output changes or a process goes, and
/// keeps the last message for the person.
/// Nothing is stored. Main thread only.
class VolumeMixer : public QObject {
    Q_OBJECT
    Q_PROPERTY(perchly::AudioAppList *apps READ appList CONSTANT FINAL)
    Q_PROPERTY(QString error READ error NOTIFY errorChanged FINAL)
    Q_PROPERTY(bool supported READ supported NOTIFY supportedChanged FINAL)
public:
    /// Begins to look. Both must outlive the mixer; whoever owns the audio system starts it.
    VolumeMixer(AudioSystem &audio, Clock &clock, QObject *parent = nullptr);
    /// Releases what is still routed.
    ~VolumeMixer() override;
    Q_DISABLE_COPY_MOVE(VolumeMixer)

    /// By name: by the code points of the normalised names, so upper case comes first; equal ones
    /// in the audio system's order. A routed process stays listed while it is silent.
    [[nodiscard]] const QList<AudioApp> &apps() const { return m_apps.apps(); }
    [[nodiscard]] AudioAppList *appList() { return &m_apps; }
    [[nodiscard]] const std::map<AudioObject, float> &levels() const { return m_levels.levels; }
    [[nodiscard]] const std::set<AudioObject> &muted() const { return m_levels.muted; }
    /// The last failure or notice; null when there was none. It stays until the next one.
    [[nodiscard]] QString error() const { return m_error; }
    /// The audio system can route a single process.
    [[nodiscard]] bool supported() const { return m_supported; }

    /// Compares the default output, the routes and the processes with what they were.
    Q_INVOKABLE void refresh();
    /// Routes the process at level 1, which nobody hears; nothing if it is routed already.
    Q_INVOKABLE void enable(quint32 id);
    /// Gives the process its own output back and forgets its level and that it was muted.
    Q_INVOKABLE void release(quint32 id);
    Q_INVOKABLE void releaseAll();
    /// The level of a routed process; nothing for another one.
    Q_INVOKABLE void set(quint32 id, float volume);
    /// Mutes the process, or gives it its level back.
    Q_INVOKABLE void mute(quint32 id);

Q_SIGNALS:
    void errorChanged();
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
    AudioObject m_output = 0; ///< seen at the last refresh; 0 before it
    bool m_supported = false;
    Task m_next; ///< the refresh that is due
};

} // namespace perchly
